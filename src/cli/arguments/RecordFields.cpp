#include "cli/arguments/RecordFields.h"

#include "cli/arguments/ExpenseFields.h"
#include "cli/arguments/FieldParts.h"
#include "cli/arguments/TimeFields.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

using namespace Qt::Literals::StringLiterals;

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

FieldProblem EnterFields(CVORec& record, const CArguments& arguments, const FieldContext& context) {
    return record.Kind() == RecordKind::Time
               ? EnterTimeFields(static_cast<CTRecord&>(record), arguments, context)
               : EnterExpenseFields(static_cast<CERecord&>(record), arguments, context);
}

namespace FieldParts {

FieldProblem CheckCleared(const CArguments& arguments, const QStringList& clearable) {
    for (const QString& name : arguments.Values("clear")) {
        if (!clearable.contains(name))
            return {ExitCode::Usage, FormatText<Text::CliCantClear>(name, clearable.join(u", "_s))};
        if (arguments.Has(name.toStdString()))
            return {ExitCode::Usage, FormatText<Text::CliSetAndCleared>(name)};
    }
    return {};
}

FieldProblem Refused(const OptionRow& option, const FieldProblem& problem) {
    if (problem.exit != ExitCode::Usage) return problem;
    return {problem.exit,
            FormatText<Text::CliOptionRefused>(QString::fromLatin1(option.name), problem.words)};
}

QString CheckLength(const QString& text, int longest) {
    return text.size() > longest ? FormatText<Text::CliTooLong>(static_cast<int>(text.size()), longest)
                                 : QString();
}

bool IsYes(const Entered& entered) {
    return EnteredValues::ReadYesNo(entered.value_or(QString())).value_or(false);
}

}  // namespace FieldParts
