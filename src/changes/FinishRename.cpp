#include "changes/FinishRename.h"

#include "changes/OfferReplace.h"

bool FinishRename(CListEditor::Renamed renamed, const ItemRename& rename, CListEditor& editor,
                  CRecordChanges& changes, CPrompt& prompt) {
    if (renamed != CListEditor::Renamed::Done && renamed != CListEditor::Renamed::Kept) return false;
    OfferReplaceInRecords(rename.list, rename.oldText, rename.newText, changes, prompt);
    return renamed == CListEditor::Renamed::Kept && editor.OfferMerge(rename);
}
