#include "shell/record/EditRecord.h"

#include "entry/CEnteredItems.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/record/CExpenseDialog.h"
#include "shell/record/CRecordDialog.h"
#include "shell/record/RecordDialogParts.h"

bool EditRecord(QWidget* parent, CVORec& record, const RecordDialogContext& context, CVORec* untouched) {
    // What was entered before and never stored doesn't go with this record, nor, if it is cancelled, with the
    // next one.
    context.entered.Clear();
    return record.Kind() == RecordKind::Time
               ? RunRecordDialog(parent, static_cast<CTRecord&>(record), context,
                                 static_cast<CTRecord*>(untouched))
               : RunExpenseDialog(parent, static_cast<CERecord&>(record), context,
                                  static_cast<const CERecord*>(untouched));
}
