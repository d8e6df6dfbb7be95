#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/arguments/QueryArguments.h"
#include "cli/commands/CListedRecords.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/RecordSteps.h"
#include "cli/commands/SortOption.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/PeriodOutput.h"
#include "cli/output/RecordOutput.h"
#include "cli/output/RecordSums.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/KindNames.h"

using namespace Qt::Literals::StringLiterals;

// The list of records of a kind: narrowed, sorted, summed up.

namespace {

constexpr OptionRow kLimitOption[] = {{"limit", "N", OptionShape::Value, Text::CliOptLimit}};

/// The sentence that refuses; empty when the order can be read.
QString ReadOrder(RecordKind kind, const CArguments& arguments, ListOrder& order) {
    if (QString problem = ReadSort(kind, arguments, order); !problem.isEmpty()) return problem;
    if (const auto limit = arguments.Value("limit")) {
        const auto count = EnteredValues::ReadCount(*limit);
        if (!count || *count < 1) return FormatText<Text::CliNoLimit>(*limit);
        order.limit = static_cast<std::size_t>(*count);
    }
    return {};
}

/// A list as it is written.
struct Listing {
    RecordKind kind;
    COutput& out;
    RecordContext& context;
    CListedRecords& records;

    [[nodiscard]] const PeriodFilter& Filter() const { return context.document.FilterOf(kind); }
    [[nodiscard]] RecordRow Row(const CVORec& record) const {
        return {record, context.timers.Shown(record.GetId())};
    }
};

/// A document that breaks off is better than one that seems complete.
ExitCode WriteListJson(Listing& list) {
    if (!list.records.Find([](const CVORec&) {})) return ExitCode::Failed;
    CJsonText json(list.out);
    json.BeginObject();
    json.Key("mode");
    json.Text(KindName(list.kind));
    json.Key("period");
    WritePeriodOf(json, list.Filter(), list.context.document.GetPeriodContext());
    json.Key("count");
    json.Integer(static_cast<qint64>(list.records.Count()));
    json.Key("records");
    json.BeginArray();
    const bool isComplete = list.records.ForEachShown([&](const CVORec& record) {
        json.NewLine();
        WriteRecordJson(json, list.Row(record));
        return !list.out.IsBroken();
    });
    if (!isComplete) return ExitCode::Failed;
    json.EndArray();
    json.Key("sums");
    WriteSums(json, list.kind, list.records.Sums(), list.context.settings);
    json.EndObject();
    list.out.Put("\n");
    return ExitCode::Done;
}

ExitCode WriteListTable(Listing& list) {
    CRecordTable table(list.kind);
    if (!list.records.Find([&](const CVORec& record) { table.Measure(list.Row(record)); }))
        return ExitCode::Failed;
    table.WriteHead(list.out);
    const bool isComplete = list.records.ForEachShown([&](const CVORec& record) {
        table.WriteLine(list.out, list.Row(record));
        return !list.out.IsBroken();
    });
    if (!isComplete) return ExitCode::Failed;
    const QString& period = list.Filter().displayName;
    const auto count = static_cast<int>(list.records.Count());
    list.out.PutLine(count == 1 ? FormatText<Text::CliOneRecord>(period)
                                : FormatText<Text::CliRecordCount>(period, count));
    WriteSumLines(list.out, list.kind, list.records.Sums(), list.context.settings);
    return ExitCode::Done;
}

}  // namespace

std::span<const OptionRow> LimitOption() {
    return kLimitOption;
}

ExitCode ListRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    ListOrder order;
    if (const QString problem = ReadOrder(kind, arguments, order); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    const FilterProblem problem =
        ReadListFilter(kind, arguments, context.owner.Queries(ModeOf(kind)), context.document);
    if (problem.exit != ExitCode::Done)
        return arguments.Has("query") ? RefuseStored(problem, console, context.owner)
                                      : Refuse(problem.exit, problem.words, console);
    for (const QString& note : problem.notes) console.out.Note(note);

    context.timers.Look();
    const bool asksForTimers = kind == RecordKind::Time && arguments.Has("timers");
    if (asksForTimers && !context.timers.AreKnown())
        return Refuse(ExitCode::Failed, LoadText(Text::CliTimersNotListed), console);
    CRecordReader reader(context.document, kind, &context.timers.Timers());
    CListedRecords records(reader, order);
    Listing list{kind, console.out, context, records};
    const ExitCode exit = console.out.isJson ? WriteListJson(list) : WriteListTable(list);
    if (records.CutOfThem().Count() > 0) console.out.Note(records.CutOfThem().Words());
    if (records.MissingCount() > 0)
        console.out.Note(FormatText<Text::CliRecordsWentMeanwhile>(static_cast<int>(records.MissingCount())));
    return exit;
}
