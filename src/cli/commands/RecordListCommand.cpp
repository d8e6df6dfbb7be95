#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/arguments/FilterArguments.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/RecordSteps.h"
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

#include <algorithm>
#include <vector>

using namespace Qt::Literals::StringLiterals;

// The list of records of a kind: narrowed, sorted, summed up.

namespace {

constexpr OptionRow kListOptions[] = {
    {"sort", "COLUMN[:asc|:desc]", OptionShape::Value, Text::CliOptSort},
    {"limit", "N", OptionShape::Value, Text::CliOptLimit},
};

struct ListOrder {
    const RecordColumn* column = nullptr;  ///< null: by day
    bool isDescending = false;
    std::size_t limit = 0;  ///< 0: all
};

QString ColumnNames(RecordKind kind) {
    QStringList names;
    for (const RecordColumn& column : RecordColumns(kind))
        if (column.CanSort()) names.append(QString::fromLatin1(column.Name()));
    return names.join(u", "_s);
}

/// The sentence that refuses; empty when the order can be read.
QString ReadOrder(RecordKind kind, const CArguments& arguments, ListOrder& order) {
    if (const auto sort = arguments.Value("sort")) {
        const QString name = sort->section(u':', 0, 0), direction = sort->section(u':', 1);
        order.column = FindRecordColumn(kind, name);
        order.isDescending = direction == u"desc";
        const bool isDirection = order.isDescending || direction == u"asc" || !sort->contains(u':');
        if (!order.column || !order.column->CanSort() || !isDirection)
            return FormatText<Text::CliNoSuchOrder>(*sort, ColumnNames(kind));
    }
    if (const auto limit = arguments.Value("limit")) {
        const auto count = EnteredValues::ReadCount(*limit);
        if (!count || *count < 1) return FormatText<Text::CliNoLimit>(*limit);
        order.limit = static_cast<std::size_t>(*count);
    }
    return {};
}

using Records = std::vector<const CVORec*>;

/// The visible records in their order. With a limit only so many are put in order.
Records Collect(const CVelmarchDoc& document, const ListOrder& order) {
    Records records;
    records.reserve(document.VisibleCount());
    document.ForEachVisible([&](const CVORec& record) { records.push_back(&record); });
    const auto before = [&order](const CVORec* a, const CVORec* b) {
        const int columns = order.column ? order.column->Compare(*a, *b) : 0;
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

void WriteListJson(COutput& out, RecordKind kind, RecordContext& context, const PeriodFilter& filter,
                   const Records& records, std::size_t shown) {
    CJsonText json(out);
    json.BeginObject();
    json.Key("mode");
    json.Text(KindName(kind));
    json.Key("period");
    WritePeriodOf(json, filter, context.document.GetPeriodContext());
    json.Key("count");
    json.Integer(static_cast<qint64>(records.size()));
    json.Key("records");
    json.BeginArray();
    for (std::size_t i = 0; i < shown && !out.IsBroken(); ++i) {
        json.NewLine();
        WriteRecordJson(json, {*records[i], context.timers.Shown(records[i]->GetId())});
    }
    json.EndArray();
    json.Key("sums");
    WriteSums(json, kind, AddUp(records), context.settings);
    json.EndObject();
    out.Put("\n");
}

void WriteListTable(COutput& out, RecordKind kind, RecordContext& context, const PeriodFilter& filter,
                    const Records& records, std::size_t shown) {
    std::vector<RecordRow> rows;
    rows.reserve(shown);
    for (std::size_t i = 0; i < shown; ++i)
        rows.push_back({*records[i], context.timers.Shown(records[i]->GetId())});
    WriteRecordTable(out, rows);
    out.PutLine(records.size() == 1
                    ? FormatText<Text::CliOneRecord>(filter.displayName)
                    : FormatText<Text::CliRecordCount>(filter.displayName, static_cast<int>(records.size())));
    WriteSumLines(out, kind, AddUp(records), context.settings);
}

}  // namespace

std::span<const OptionRow> ListOptions() {
    return kListOptions;
}

ExitCode ListRecords(RecordKind kind, const CArguments& arguments, Console& console, RecordContext& context) {
    ListOrder order;
    if (const QString problem = ReadOrder(kind, arguments, order); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    const FilterProblem problem = ReadFilter(kind, arguments, context.document);
    if (problem.exit != ExitCode::Done) return Refuse(problem.exit, problem.words, console);

    context.timers.Look();
    context.document.SetTimers(&context.timers.Timers());
    const PeriodFilter& filter = context.document.FilterOf(kind);
    context.document.LoadPassing(kind);
    context.document.BuildVisible();
    if (context.document.Store().m_lastError != 0) return ExitCode::Failed;
    const Records records = Collect(context.document, order);
    const std::size_t shown = order.limit == 0 ? records.size() : std::min(order.limit, records.size());
    if (console.out.isJson)
        WriteListJson(console.out, kind, context, filter, records, shown);
    else
        WriteListTable(console.out, kind, context, filter, records, shown);
    return ExitCode::Done;
}
