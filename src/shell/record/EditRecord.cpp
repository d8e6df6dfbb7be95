#include "shell/record/EditRecord.h"

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/record/CExpenseDialog.h"
#include "shell/record/CRecordDialog.h"

bool EditRecord(QWidget* parent, CVORec& record, const RecordDialogContext& context, CVORec* untouched) {
    return record.Kind() == RecordKind::Time
               ? RunRecordDialog(parent, static_cast<CTRecord&>(record), context,
                                 static_cast<CTRecord*>(untouched))
               : RunExpenseDialog(parent, static_cast<CERecord&>(record), context);
}
