#include "config/ColumnCommand.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/KindNames.h"

#include <QJsonArray>

#include <algorithm>
#include <functional>

namespace {

constexpr QLatin1String kColumns("columns");
constexpr QLatin1String kList("list");
constexpr QLatin1String kTree("tree");
constexpr QLatin1String kHalf("half");
constexpr QLatin1String kShown("shown");
constexpr QLatin1String kWidths("widths");
constexpr QLatin1String kBreaks("breaks");
constexpr QLatin1String kReset("reset");

// --- Reading and writing

QJsonArray ArrayOf(const std::vector<int>& numbers) {
    QJsonArray array;
    for (const int number : numbers) array.append(number);
    return array;
}

/// Whole numbers; nothing when one isn't.
std::optional<std::vector<int>> Numbers(const QJsonValue& values) {
    std::vector<int> numbers;
    for (const auto& value : values.toArray()) {
        const int number = value.toInt(-1);
        if (number < 0) return std::nullopt;
        numbers.push_back(number);
    }
    return values.isArray() ? std::optional(numbers) : std::nullopt;
}

/// Nothing when a key is no number.
std::optional<std::map<int, int>> WidthsOf(const QJsonObject& json) {
    std::map<int, int> widths;
    for (auto width = json.begin(); width != json.end(); ++width) {
        bool isNumber = false;
        widths[width.key().toInt(&isNumber)] = width->toInt();
        if (!isNumber) return std::nullopt;
    }
    return widths;
}

/// Reads numbers that may be missing. False where there is something else.
bool ReadNumbers(const QJsonValue& values, std::optional<std::vector<int>>& numbers) {
    if (values.isUndefined()) return true;
    numbers = Numbers(values);
    return numbers.has_value();
}

// --- Carrying out

bool Show(const std::vector<int>& shown, ColumnHalf half, CColSet& columns) {
    columns.ShowExactly(half, shown);
    return columns.Order(half) == shown;  // one that can't be shown, or twice, is left out there
}

bool SetWidths(const std::map<int, int>& widths, ColumnHalf half, CColSet& columns) {
    for (const auto& [column, pixels] : widths) {
        if (column < FirstColumn(half) || column >= EndOfColumns(half)) return false;
        if (pixels < 1 || pixels > kWidestColumn) return false;
        columns.SetWidth(column, pixels);
    }
    return true;
}

/// Ascending, as others would keep those behind them from firing.
bool SetBreaks(const std::vector<int>& places, ColumnHalf half, CColSet& columns) {
    if (!places.empty() && places.front() < 1) return false;
    if (std::ranges::adjacent_find(places, std::greater_equal<>()) != places.end()) return false;
    columns.SetBreaks(half, {places.begin(), places.end()});
    return true;
}

/// The defaults of a half; the captions are the user's and stay.
void Reset(ColumnHalf half, const CColSet& defaults, CColSet& columns) {
    columns.ShowExactly(half, defaults.Order(half));
    columns.SetBreaks(half, defaults.Breaks(half));
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        columns.SetWidth(column, defaults.EntryAt(column).width);
}

template <class Set>
bool Change(const ColumnRequest& request, Set& columns) {
    const ColumnHalf half = HalfOf(request.kind);
    if (request.isReset) {
        Set defaults;
        defaults.SetDefaults();
        Reset(half, defaults, columns);
        return true;
    }
    return (!request.shown || Show(*request.shown, half, columns)) &&
           SetWidths(request.widths, half, columns) &&
           (!request.breaks || SetBreaks(*request.breaks, half, columns));
}

/// On any failure memory takes back what it held before.
template <class Set>
InstanceReply Run(const ColumnRequest& request, Set& columns, CCfgStore& settings) {
    const Set before = columns;
    if (!Change(request, columns)) {
        columns = before;
        return InstanceReply::Refused(ReplyReason::NotUnderstood, LoadText(Text::RequestUnknown));
    }
    if (settings.Profile().Change([&] { return settings.SaveAll(); })) return InstanceReply::Done();
    columns = before;
    return InstanceReply::Refused(ReplyReason::Failed,
                                  FormatText<Text::ColumnsNotSaved>(settings.Tree().Error()));
}

}  // namespace

QJsonObject ColumnRequest::ToJson() const {
    QJsonObject json{{kColumns, isTree ? kTree : kList}, {kHalf, KindName(kind)}};
    if (isReset) json.insert(kReset, true);
    if (shown) json.insert(kShown, ArrayOf(*shown));
    if (breaks) json.insert(kBreaks, ArrayOf(*breaks));
    QJsonObject pixels;
    for (const auto& [column, width] : widths) pixels.insert(QString::number(column), width);
    if (!pixels.isEmpty()) json.insert(kWidths, pixels);
    return json;
}

bool ColumnRequest::IsIn(const QJsonObject& json) {
    return json.contains(kColumns);
}

std::optional<ColumnRequest> ColumnRequest::FromJson(const QJsonObject& json) {
    const QString columns = json.value(kColumns).toString();
    const auto kind = KindNamed(json.value(kHalf).toString());
    const auto widths = WidthsOf(json.value(kWidths).toObject());
    if (!kind || !widths || (columns != kList && columns != kTree)) return std::nullopt;
    ColumnRequest request{columns == kTree, *kind, json.value(kReset).toBool(), {}, *widths, {}};
    const bool isRead =
        ReadNumbers(json.value(kShown), request.shown) && ReadNumbers(json.value(kBreaks), request.breaks);
    return isRead ? std::optional(std::move(request)) : std::nullopt;
}

InstanceReply RunColumnRequest(const ColumnRequest& request, CCfgStore& settings) {
    return request.isTree ? Run(request, settings.TreeColumns(), settings)
                          : Run(request, settings.ListColumns(), settings);
}
