#include "changes/FinishRename.h"

#include "changes/OfferReplace.h"

/// What becomes of the items comes first: whoever leaves both questions with Escape has changed nothing.
bool FinishRename(CListEditor::Renamed renamed, const ItemRename& rename, CListEditor& editor,
                  CRecordChanges& changes, CPrompt& prompt) {
    if (renamed != CListEditor::Renamed::Done && renamed != CListEditor::Renamed::Kept) return false;
    const bool isMerged = renamed == CListEditor::Renamed::Kept && editor.OfferMerge(rename);
    OfferReplaceInRecords(rename.list, rename.oldText, rename.newText, changes, prompt);
    return isMerged;
}
