#include "cli/output/QueryOutput.h"

#include "app/CFieldCatalogue.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/CaptionedLines.h"
#include "cli/output/FieldOutput.h"
#include "cli/output/PeriodOutput.h"
#include "fields/FieldId.h"
#include "lang/FormatText.h"
#include "records/KindNames.h"
#include "reports/query/CQueryStore.h"

#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr FieldId kTimeItems[] = {FieldId::TimeItem1, FieldId::TimeItem2, FieldId::TimeItem3,
                                  FieldId::TimeItem4, FieldId::TimeItem5};
constexpr FieldId kExpenseItems[] = {FieldId::ExpenseItem1, FieldId::ExpenseItem2, FieldId::ExpenseItem3,
                                     FieldId::ExpenseItem4, FieldId::ExpenseItem5};
constexpr FieldId kFlags[] = {FieldId::Flag1, FieldId::Flag2, FieldId::Flag3, FieldId::Flag4, FieldId::Flag5};
constexpr const char* kItemNames[] = {"item1", "item2", "item3", "item4", "item5"};
constexpr const char* kFlagNames[] = {"flag1", "flag2", "flag3", "flag4", "flag5"};
constexpr int kAmountPlaces = 9;

struct ComparisonRow {
    int comparison;
    const char* sign;
    Text words;
};
constexpr ComparisonRow kComparisons[] = {
    {AmountComparison::kEqual, "=", Text::AmountEqual},
    {AmountComparison::kLess, "<", Text::AmountLess},
    {AmountComparison::kGreater, ">", Text::AmountGreater},
};

const ComparisonRow& RowOf(int comparison) {
    const auto* const row = std::ranges::find(kComparisons, comparison, &ComparisonRow::comparison);
    return row == std::end(kComparisons) ? kComparisons[0] : *row;
}

/// The period of a query as its filter has it today.
struct PeriodToday {
    PeriodFilter filter;
    std::optional<int> preset;
    QString name;
    QString start;  ///< "2026-11-15"; empty where the period sets no days
    QString end;
};

/// The period alone: the criteria play no part in it.
PeriodFilter FilterOf(const QueryFields& fields, const PeriodContext& context) {
    TimeQuery query;
    static_cast<QueryFields&>(query) = fields;
    TimeFilter filter;
    ApplyQuery(query, context, filter);
    return filter;
}

PeriodToday PeriodOf(const QueryFields& query, const PeriodContext& context) {
    PeriodToday period{FilterOf(query, context), PresetOfRow(query.periodRow), {}, {}, {}};
    period.name = period.preset ? period.filter.displayName : LoadText(Text::CustomRange);
    DateTimeVal start, end;
    if (!SetsDays(period.filter) || !period.filter.Dates(start, end, context)) return period;
    period.start = IsoDate(start.year, start.month, start.day);
    period.end = IsoDate(end.year, end.month, end.day);
    return period;
}

// --- JSON

void WriteFlag(CJsonText& json, const char* name, int criterion) {
    json.Key(name);
    criterion == FlagCriterion::kAny ? json.Null() : json.Flag(criterion == FlagCriterion::kSet);
}

void WriteItems(CJsonText& json, const QueryFields& query) {
    for (std::size_t i = 0; i < query.items.size(); ++i) {
        json.Key(kItemNames[i]);
        query.items[i] == LoadText(Text::AnyWord) ? json.Null() : json.Text(query.items[i]);
    }
    json.Key("whole");
    json.Flag(query.matchWhole);
    json.Key("case");
    json.Flag(query.matchCase);
}

void WriteAmount(CJsonText& json, const ExpenseQuery& query) {
    json.Key("amount");
    if (query.amount == ExpenseFilter::kAnyAmount) return json.Null();
    json.BeginObject();
    json.Key("comparison");
    json.Text(QString::fromLatin1(RowOf(query.comparison).sign));
    json.Key("value");
    json.Number(AmountDigits(query.amount).toDouble(), kAmountPlaces);
    json.EndObject();
}

void WritePeriod(CJsonText& json, const QueryFields& query, const PeriodContext& context) {
    json.Key("period");
    if (!query.isPeriodOn) return json.Null();
    const PeriodToday period = PeriodOf(query, context);
    json.BeginObject();
    json.Key("row");
    json.Integer(query.periodRow);
    json.Key("preset");
    period.preset ? json.Integer(*period.preset) : json.Null();
    json.Key("name");
    json.Text(period.name);
    json.Key("start");
    json.TextOrNull(period.start);
    json.Key("end");
    json.TextOrNull(period.end);
    json.EndObject();
}

void WriteCriteria(CJsonText& json, const TimeQuery& query) {
    WriteFlag(json, "isBillable", query.billable);
    WriteFlag(json, "isBilled", query.billed);
}

void WriteCriteria(CJsonText& json, const ExpenseQuery& query) {
    WriteFlag(json, "isDistance", query.distance);
    for (std::size_t i = 0; i < query.flags.size(); ++i) WriteFlag(json, kFlagNames[i], query.flags[i]);
    WriteAmount(json, query);
}

RecordKind KindOf(const StoredQuery& query) {
    return std::holds_alternative<TimeQuery>(query) ? RecordKind::Time : RecordKind::Expense;
}

// --- Lines

struct Lines {
    const CFieldCatalogue& fields;
    std::vector<CaptionedLine> lines{};

    [[nodiscard]] QString Title(FieldId field) const { return fields.GetFieldTitle(NumberOf(field)); }
    void Flag(const QString& caption, int criterion) {
        if (criterion != FlagCriterion::kAny)
            lines.push_back(
                {caption, LoadText(criterion == FlagCriterion::kSet ? Text::FieldYes : Text::FieldNo)});
    }
    void Items(const QueryFields& query, const FieldId (&items)[5]) {
        for (std::size_t i = 0; i < query.items.size(); ++i)
            if (query.items[i] != LoadText(Text::AnyWord)) lines.push_back({Title(items[i]), query.items[i]});
    }
    void operator()(const TimeQuery& query) {
        Items(query, kTimeItems);
        Flag(Title(FieldId::Billable), query.billable);
        Flag(Title(FieldId::Billed), query.billed);
    }
    void operator()(const ExpenseQuery& query) {
        Items(query, kExpenseItems);
        Flag(LoadText(Text::CliDistanceEntry), query.distance);
        for (std::size_t i = 0; i < query.flags.size(); ++i) Flag(Title(kFlags[i]), query.flags[i]);
        if (query.amount != ExpenseFilter::kAnyAmount)
            lines.push_back({Title(FieldId::ExpenseAmount),
                             LoadText(RowOf(query.comparison).words) + u' ' + AmountText(query.amount)});
    }
};

QString PeriodWords(const QueryFields& query, const PeriodContext& context) {
    if (!query.isPeriodOn) return {};
    const PeriodToday period = PeriodOf(query, context);
    if (period.start.isEmpty()) return period.name;
    return FormatText<Text::CliPeriodOfQuery>(period.name, period.start, period.end);
}

QString TextRule(const QueryFields& query) {
    QStringList words;
    if (query.matchWhole) words.append(LoadText(Text::CliTextsWhole));
    if (query.matchCase) words.append(LoadText(Text::CliTextsCase));
    return words.join(u", "_s);
}

const QueryFields& FieldsOf(const StoredQuery& query) {
    return std::visit([](const auto& one) -> const QueryFields& { return one; }, query);
}

}  // namespace

void WriteQueryJson(COutput& out, const ShownQuery& shown) {
    const QueryFields& fields = FieldsOf(shown.query);
    CJsonText json(out);
    json.BeginObject();
    json.Key("mode");
    json.Text(KindName(KindOf(shown.query)));
    json.Key("name");
    json.Text(shown.name);
    json.Key("reserved");
    json.Flag(CQueryStore::IsReserved(shown.name));
    WriteItems(json, fields);
    std::visit([&json](const auto& query) { WriteCriteria(json, query); }, shown.query);
    WritePeriod(json, fields, shown.context);
    json.EndObject();
    out.Put("\n");
}

void WriteQueryLines(COutput& out, const ShownQuery& shown, const CFieldCatalogue& fields) {
    Lines lines{fields};
    std::visit(lines, shown.query);
    const QueryFields& query = FieldsOf(shown.query);
    lines.lines.push_back({LoadText(Text::CliPeriodCaption), PeriodWords(query, shown.context)});
    const bool isAny = std::ranges::all_of(lines.lines, &QString::isEmpty, &CaptionedLine::text);
    lines.lines.push_back({LoadText(Text::CliTextsCaption), TextRule(query)});
    if (isAny) out.PutLine(LoadText(Text::CliNoCriteria));
    PutLines(out, lines.lines);
}
