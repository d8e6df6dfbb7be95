#include "app/CVelmarchDoc.h"
#include "calendar/NumberText.h"
#include "cli/CArguments.h"
#include "cli/CJsonText.h"
#include "cli/COutput.h"
#include "cli/EnteredValues.h"
#include "cli/FilterArguments.h"
#include "cli/PeriodOutput.h"
#include "cli/RecordDesk.h"
#include "cli/RecordSteps.h"
#include "cli/TimeCommands.h"
#include "cli/TimeOutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"

#include <QMap>
#include <algorithm>
#include <vector>

using namespace Qt::Literals::StringLiterals;

// The list of time records: narrowed, sorted, summed up.

namespace {

constexpr OptionRow kListOptions[] = {
    {"sort", "COLUMN[:asc|:desc]", OptionShape::Value, Text::CliOptSort},
    {"limit", "N", OptionShape::Value, Text::CliOptLimit},
};

struct ListOrder {
    const TimeColumn* column = nullptr;  ///< null: by day
    bool isDescending = false;
    std::size_t limit = 0;  ///< 0: all
};

/// Amount and effective hours of a currency, added up in double precision as the status bar does it.
struct Sum {
    double amount = 0.0;
    double hours = 0.0;
};

QString ColumnNames() {
    QStringList names;
    for (const TimeColumn& column : TimeColumns())
        if (column.compare) names.append(QString::fromLatin1(column.name));
    return names.join(u", "_s);
}

/// The sentence that refuses; empty when the order can be read.
QString ReadOrder(const CArguments& arguments, ListOrder& order) {
    if (const auto sort = arguments.Value("sort")) {
        const QString name = sort->section(u':', 0, 0), direction = sort->section(u':', 1);
        order.column = FindTimeColumn(name);
        order.isDescending = direction == u"desc";
        const bool isDirection = order.isDescending || direction == u"asc" || !sort->contains(u':');
        if (!order.column || !order.column->compare || !isDirection)
            return FormatText<Text::CliNoSuchOrder>(*sort, ColumnNames());
    }
    if (const auto limit = arguments.Value("limit")) {
        const auto count = EnteredValues::ReadCount(*limit);
        if (!count || *count < 1) return FormatText<Text::CliNoLimit>(*limit);
        order.limit = static_cast<std::size_t>(*count);
    }
    return {};
}

/// Only the days of the period are read where it has days; everything otherwise.
void LoadPeriod(RecordDesk& desk) {
    DateTimeVal first, last;
    const TimeFilter& filter = desk.document.Filter();
    if (filter.isEnabled && filter.Dates(first, last, desk.document.PeriodNeeds()))
        desk.document.LoadDays(RecordKind::Time, first, last);
    else
        desk.document.LoadRecords(RecordKind::Time);
    desk.document.BuildVisible();
}

/// The visible records in their order. With a limit only so many are put in order.
std::vector<const CTRecord*> Collect(const CVelmarchDoc& document, const ListOrder& order) {
    std::vector<const CTRecord*> records;
    records.reserve(document.VisibleCount());
    document.ForEachVisible(
        [&](const CVORec& record) { records.push_back(static_cast<const CTRecord*>(&record)); });
    const auto before = [&order](const CTRecord* a, const CTRecord* b) {
        const int columns = order.column ? order.column->compare(*a, *b) : 0;
        if (columns != 0) return order.isDescending ? columns > 0 : columns < 0;
        return CompareDays(*a, *b) < 0;
    };
    if (order.limit == 0 || order.limit >= records.size())
        std::sort(records.begin(), records.end(), before);
    else
        std::partial_sort(records.begin(), records.begin() + static_cast<std::ptrdiff_t>(order.limit),
                          records.end(), before);
    return records;
}

QMap<QString, Sum> AddUp(const std::vector<const CTRecord*>& records) {
    QMap<QString, Sum> sums;
    for (const CTRecord* record : records) {
        float amount = 0.0F, hours = 0.0F;
        (void)record->GetAmount(amount);  // 0 where there is none
        (void)record->spans.effective.GetDecimal(hours);
        Sum& sum = sums[record->item5];
        sum.amount += double{amount};
        sum.hours += double{hours};
    }
    return sums;
}

void WriteSums(CJsonText& json, const QMap<QString, Sum>& sums, const CCfgStore& settings) {
    json.BeginArray();
    for (auto sum = sums.begin(); sum != sums.end(); ++sum) {
        json.BeginObject();
        json.Key("key");
        json.Text(sum.key());
        json.Key("amount");
        json.Number(sum->amount, settings.precisionAmount);
        json.Key("hours");
        json.Number(sum->hours, settings.precisionDuration);
        json.EndObject();
    }
    json.EndArray();
}

void WriteListJson(COutput& out, RecordDesk& desk, const std::vector<const CTRecord*>& records,
                   std::size_t shown) {
    CJsonText json(out);
    json.BeginObject();
    json.Key("mode");
    json.Text(u"time"_s);
    json.Key("period");
    WritePeriodOf(json, desk.document.Filter(), desk.document.PeriodNeeds());
    json.Key("count");
    json.Integer(static_cast<qint64>(records.size()));
    json.Key("records");
    json.BeginArray();
    for (std::size_t i = 0; i < shown && !out.IsBroken(); ++i) {
        json.NewLine();
        WriteTimeJson(json, {*records[i], desk.timers.Shown(records[i]->GetId())});
    }
    json.EndArray();
    json.Key("sums");
    WriteSums(json, AddUp(records), desk.settings);
    json.EndObject();
    out.Put("\n");
}

void WriteListTable(COutput& out, RecordDesk& desk, const std::vector<const CTRecord*>& records,
                    std::size_t shown) {
    std::vector<TimeRow> rows;
    rows.reserve(shown);
    for (std::size_t i = 0; i < shown; ++i)
        rows.push_back({*records[i], desk.timers.Shown(records[i]->GetId())});
    WriteTimeTable(out, rows);
    const auto sums = AddUp(records);
    const CRegionalInfo& region = desk.settings.Region();
    const QString& period = desk.document.Filter().displayName;
    out.PutLine(records.size() == 1
                    ? FormatText<Text::CliOneRecord>(period)
                    : FormatText<Text::CliRecordCount>(period, static_cast<int>(records.size())));
    for (auto sum = sums.begin(); sum != sums.end(); ++sum) {
        if (!(sum->amount > 0.0 || sum->hours > 0.0)) continue;
        const QString amount = FormatNumber(region, sum->amount, desk.settings.precisionAmount);
        const QString hours = FormatNumber(region, sum->hours, desk.settings.precisionDuration);
        out.PutLine(FormatText<Text::CliSumLine>(hours, amount, sum.key()));
    }
}

}  // namespace

std::span<const OptionRow> TimeListOptions() {
    return kListOptions;
}

ExitCode ListTimes(const CArguments& arguments, Console& console, RecordDesk& desk) {
    ListOrder order;
    if (const QString problem = ReadOrder(arguments, order); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    const FilterProblem problem =
        ReadTimeFilter(arguments, desk.document.PeriodNeeds(), desk.document.Filter());
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);

    desk.timers.Look();
    const RecordModeScope mode(RecordMode::Time);
    desk.document.SetTimers(&desk.timers.Desk());
    LoadPeriod(desk);
    if (desk.document.Store().m_lastError != 0) return ExitCode::Failed;
    const auto records = Collect(desk.document, order);
    const std::size_t shown = order.limit == 0 ? records.size() : std::min(order.limit, records.size());
    if (console.out.isJson)
        WriteListJson(console.out, desk, records, shown);
    else
        WriteListTable(console.out, desk, records, shown);
    return ExitCode::Done;
}
