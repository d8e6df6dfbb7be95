#include "cli/arguments/RecordFields.h"

#include "cli/arguments/ExpenseFields.h"
#include "cli/arguments/TimeFields.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

std::span<const OptionRow> FieldOptions(RecordKind kind) {
    return kind == RecordKind::Time ? TimeFieldOptions() : ExpenseFieldOptions();
}

std::unique_ptr<CVORec> RecordOfToday(RecordKind kind, const CClock& clock) {
    std::unique_ptr<CVORec> record = NewRecord(kind);
    RecordDate& date = kind == RecordKind::Time ? static_cast<CTRecord&>(*record).date
                                                : static_cast<CERecord&>(*record).date;
    DateTimeVal today;
    if (today.SetToday(clock)) date.Set(today.month, today.day, today.year);
    return record;
}

EnteredFields EnterFields(CVORec& record, const CArguments& arguments, const FieldContext& context) {
    return record.Kind() == RecordKind::Time
               ? EnterTimeFields(static_cast<CTRecord&>(record), arguments, context)
               : EnterExpenseFields(static_cast<CERecord&>(record), arguments, context);
}
