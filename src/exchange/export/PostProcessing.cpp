#include "exchange/export/PostProcessing.h"

#include "changes/CRecordChanges.h"
#include "entry/RecordMarks.h"

Outcome PostProcess(AfterExport what, RecordKind kind, const QStringList& ids, CRecordChanges& changes) {
    switch (what) {
        case AfterExport::Delete:
            return changes.Delete(kind, ids, Ask::No);
        case AfterExport::Mark:
            return changes.SetMark(kind, RecordMark::Exported, ids, Ask::No);
        default:
            return Outcome::Nothing();
    }
}
