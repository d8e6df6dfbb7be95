#include "cli/arguments/QueryArguments.h"

#include "app/CVelmarchDoc.h"
#include "calendar/NumberText.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "reports/query/CQueryStore.h"

#include <algorithm>
#include <string_view>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kQueryOption[] = {{"query", "NAME", OptionShape::Value, Text::CliOptQuery}};

FilterProblem Usage(const QString& words) {
    return {ExitCode::Usage, words};
}

QString NameOf(const OptionRow& option) {
    return QString::fromLatin1(option.name);
}

bool IsOf(std::span<const OptionRow> options, std::string_view name) {
    return std::ranges::any_of(options, [name](const OptionRow& option) { return name == option.name; });
}

std::vector<OptionRow> AllOptions() {
    const auto times = FilterOptions(RecordKind::Time), expenses = FilterOptions(RecordKind::Expense);
    std::vector<OptionRow> all(times.begin(), times.end());
    for (const OptionRow& option : expenses)
        if (!IsOf(times, option.name)) all.push_back(option);
    return all;
}

// --- Storing

/// The sentence that refuses a text; empty when it can be stored.
QString TextProblem(const OptionRow& option, const CArguments& arguments) {
    const QString text = arguments.Value(option.name).value_or(QString());
    if (option.shape != OptionShape::Value || !arguments.Has(option.name)) return {};
    if (text.isEmpty()) return FormatText<Text::CliEmptyCriterion>(NameOf(option));
    if (text.size() <= CCfgStore::kMostOfValue) return {};
    return FormatText<Text::CliStoredTextTooLong>(NameOf(option), static_cast<int>(text.size()),
                                                  CCfgStore::kMostOfValue);
}

/// The second mark goes with the first, the fourth with the third.
QString DependentProblem(const CArguments& arguments, const char* flag, const char* first) {
    if (!arguments.Has(flag)) return {};
    const auto typed = arguments.Value(first);
    if (typed && EnteredValues::ReadYesNo(*typed).value_or(true)) return {};
    return FormatText<Text::CliFlagNeedsOther>(QString::fromLatin1(flag), QString::fromLatin1(first));
}

/// The sentence that refuses what the dialog can't hold either.
QString PlaceProblem(RecordKind kind, const CArguments& arguments) {
    for (const OptionRow& option : StoredQueryOptions()) {
        if (!arguments.Has(option.name)) continue;
        const std::string_view name = option.name;
        if (name == "exported" || name == "timers" || name == "text")
            return FormatText<Text::CliNoPlaceInQuery>(NameOf(option));
        if (!IsOf(FilterOptions(kind), name))
            return FormatText<Text::CliUnexpected>(u"--"_s + NameOf(option));
        if (QString problem = TextProblem(option, arguments); !problem.isEmpty()) return problem;
    }
    if (QString problem = DependentProblem(arguments, "flag2", "flag1"); !problem.isEmpty()) return problem;
    return DependentProblem(arguments, "flag4", "flag3");
}

QString DateText(const DateTimeVal& date, const PeriodContext& context) {
    return FormatDate(context.region, date.month, date.day, date.year);
}

/// A preset is stored as its row, days as they are.
FilterProblem StorePeriod(const CArguments& arguments, const PeriodContext& context, QueryFields& query) {
    PeriodOption period;
    FilterProblem problem = ReadPeriodOption(arguments, context, period);
    query.isPeriodOn = period.preset || period.days;
    if (period.preset) query.periodRow = RowOfPreset(*period.preset);
    if (period.days) {
        query.startText = DateText(period.days->first, context);
        query.endText = DateText(period.days->second, context);
    }
    return problem;
}

void TakeCriteria(const TimeFilter& filter, TimeQuery& query) {
    query.billable = filter.billable;
    query.billed = filter.billed;
}

void TakeCriteria(const ExpenseFilter& filter, ExpenseQuery& query) {
    query.amount = filter.amount;
    query.comparison = filter.comparison;
    query.distance = filter.distance;
    query.flags = filter.flags;
}

template <class Filter, class Query>
FilterProblem Store(const CArguments& arguments, const PeriodContext& context, StoredQuery& stored) {
    Filter filter;
    FilterProblem problem = ReadFilter(arguments, context, filter);
    if (problem.exit != ExitCode::Done) return problem;
    Query query;
    query.Reset(context);
    query.items = filter.items;
    query.matchCase = filter.matchCase;
    query.matchWhole = filter.matchWhole;
    TakeCriteria(filter, query);
    const FilterProblem period = StorePeriod(arguments, context, query);
    stored = query;
    return period.exit == ExitCode::Done ? problem : period;
}

// --- Using

struct Applier {
    CVelmarchDoc& document;

    void operator()(const TimeQuery& query) const {
        ApplyQuery(query, document.GetPeriodContext(), document.Filter());
    }
    void operator()(const ExpenseQuery& query) const {
        ApplyQuery(query, document.GetPeriodContext(), document.FilterOfExpenses());
    }
};

QStringList NotesOf(const QString& name, const StoredQuery& query, const PeriodContext& context) {
    const QStringList unread =
        std::visit([&context](const QueryFields& fields) { return UnreadDates(fields, context); }, query);
    QStringList notes;
    for (const QString& date : unread) notes.append(FormatText<Text::QueryDateUnread>(name, date));
    return notes + NotesOn(query, context);
}

}  // namespace

std::span<const OptionRow> QueryOption() {
    return kQueryOption;
}

std::span<const OptionRow> StoredQueryOptions() {
    static const std::vector<OptionRow> kOptions = AllOptions();
    return kOptions;
}

FilterProblem NoSuchQuery(const QString& name) {
    return {ExitCode::NotFound, FormatText<Text::CliNoSuchQuery>(name)};
}

FilterProblem ApplyStoredQuery(const QString& name, const CQueryStore& queries, CVelmarchDoc& document) {
    const auto stored = queries.Find(name);
    if (!stored) return NoSuchQuery(name);
    const auto query = queries.Load(*stored);
    if (!query) return {ExitCode::Failed, FormatText<Text::QueryDamaged>(*stored)};
    std::visit(Applier{document}, *query);
    return {ExitCode::Done, {}, NotesOf(*stored, *query, document.GetPeriodContext())};
}

FilterProblem ReadListFilter(RecordKind kind, const CArguments& arguments, const CQueryStore& queries,
                             CVelmarchDoc& document) {
    const auto name = arguments.Value("query");
    if (!name) return ReadFilter(kind, arguments, document);
    for (const OptionRow& option : FilterOptions(kind))
        if (arguments.Has(option.name)) return Usage(FormatText<Text::CliQueryAlone>(NameOf(option)));
    return ApplyStoredQuery(*name, queries, document);
}

FilterProblem ReadQuery(RecordMode mode, const CArguments& arguments, const PeriodContext& context,
                        StoredQuery& query) {
    const QString problem = PlaceProblem(KindOf(mode), arguments);
    if (!problem.isEmpty()) return Usage(problem);
    return mode == RecordMode::Time ? Store<TimeFilter, TimeQuery>(arguments, context, query)
                                    : Store<ExpenseFilter, ExpenseQuery>(arguments, context, query);
}
