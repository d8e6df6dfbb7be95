#include "changes/CRecordChanges.h"
#include "cli/arguments/CArguments.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "entry/RecordMarks.h"
#include "lang/FormatText.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

// What is done to several records at once: all of it or nothing, with one commit.

namespace {

constexpr OptionRow kTimeMarkOptions[] = {{"as", "MARK", OptionShape::Value, Text::CliOptAs}};
constexpr OptionRow kExpenseMarkOptions[] = {{"as", "MARK", OptionShape::Value, Text::CliOptExpAs}};

struct MarkRow {
    const char* name;
    RecordMark mark;
};
constexpr MarkRow kMarks[] = {
    {"first", RecordMark::First},
    {"first-second", RecordMark::FirstAndSecond},
    {"third", RecordMark::Third},
    {"third-fourth", RecordMark::ThirdAndFourth},
    {"fifth", RecordMark::Fifth},
    {"exported", RecordMark::Exported},
    {"not-exported", RecordMark::NotExported},
};

QString MarkNames(RecordKind kind) {
    QStringList names;
    for (const MarkRow& row : kMarks)
        if (IsMarkOf(kind, row.mark)) names.append(QString::fromLatin1(row.name));
    return names.join(u", "_s);
}

const MarkRow* FindMark(RecordKind kind, const QString& name) {
    const auto found = std::ranges::find_if(kMarks, [&](const MarkRow& row) {
        return IsMarkOf(kind, row.mark) && name == QLatin1String(row.name);
    });
    return found == std::end(kMarks) ? nullptr : found;
}

ExitCode EndOf(const Outcome& outcome) {
    return outcome ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace

std::span<const OptionRow> MarkOptions(RecordKind kind) {
    return kind == RecordKind::Time ? kTimeMarkOptions : kExpenseMarkOptions;
}

ExitCode DeleteRecords(RecordKind kind, const CArguments& arguments, Console& console,
                       RecordContext& context) {
    const auto ids = FindRecords(kind, arguments.Words(), console, context);
    if (!ids) return LookupFailed(context);
    if (const ExitCode exit = CheckTimers(kind, *ids, console, context); exit != ExitCode::Done) return exit;
    const Outcome outcome = context.changes.Delete(kind, *ids, Ask::BySetting);
    Announce(kind, outcome.ids, console, context);
    PrintCount(console.out, "deleted", Text::CliDeleted, outcome.ids.size());
    return EndOf(outcome);
}

ExitCode CopyRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    const auto ids = FindRecords(kind, arguments.Words(), console, context);
    if (!ids) return LookupFailed(context);
    const Outcome outcome = context.changes.Copy(kind, *ids);
    Announce(kind, outcome.ids, console, context);
    PrintTexts(console.out, outcome.ids);
    return EndOf(outcome);
}

ExitCode MarkRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    const QString name = arguments.Value("as").value_or(QString());
    const MarkRow* row = FindMark(kind, name);
    if (!row) return Refuse(ExitCode::Usage, FormatText<Text::CliNoSuchMark>(name, MarkNames(kind)), console);
    const auto ids = FindRecords(kind, arguments.Words(), console, context);
    if (!ids) return LookupFailed(context);
    const Outcome outcome = context.changes.SetMark(kind, row->mark, *ids, Ask::BySetting);
    Announce(kind, outcome.ids, console, context);
    PrintCount(console.out, "changed", Text::CliChanged, outcome.ids.size());
    return EndOf(outcome);
}
