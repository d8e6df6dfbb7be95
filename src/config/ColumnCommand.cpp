#include "config/ColumnCommand.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"

#include <QJsonArray>

#include <algorithm>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;

QJsonObject Refusal(int exitCode, const QString& words) {
    return {{u"ok"_s, false}, {u"exit"_s, exitCode}, {u"error"_s, words}};
}

std::optional<ColumnHalf> HalfOf(const QJsonObject& command) {
    const QString half = command[u"half"].toString();
    if (half == u"time") return ColumnHalf::Time;
    return half == u"expense" ? std::optional(ColumnHalf::Expense) : std::nullopt;
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

bool Show(const QJsonValue& shown, ColumnHalf half, CColSet& columns) {
    const auto numbers = Numbers(shown);
    if (!numbers) return false;
    columns.ShowExactly(half, *numbers);
    return columns.Order(half) == *numbers;  // one that can't be shown, or twice, is left out there
}

bool SetWidths(const QJsonObject& widths, ColumnHalf half, CColSet& columns) {
    for (auto width = widths.begin(); width != widths.end(); ++width) {
        bool isNumber = false;
        const int column = width.key().toInt(&isNumber), pixels = width->toInt();
        if (!isNumber || column < FirstColumn(half) || column >= EndOfColumns(half)) return false;
        if (pixels < 1 || pixels > kWidestColumn) return false;
        columns.SetWidth(column, pixels);
    }
    return true;
}

/// Ascending, as others would keep those behind them from firing.
bool SetBreaks(const QJsonValue& breaks, ColumnHalf half, CColSet& columns) {
    const auto places = Numbers(breaks);
    if (!places || (!places->empty() && places->front() < 1)) return false;
    if (std::ranges::adjacent_find(*places, std::greater_equal<>()) != places->end()) return false;
    columns.SetBreaks(half, {places->begin(), places->end()});
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
bool Change(const QJsonObject& command, ColumnHalf half, Set& columns) {
    if (command[u"reset"].toBool()) {
        Set defaults;
        defaults.SetDefaults();
        Reset(half, defaults, columns);
        return true;
    }
    return (!command.contains(u"shown"_s) || Show(command[u"shown"], half, columns)) &&
           SetWidths(command[u"widths"].toObject(), half, columns) &&
           (!command.contains(u"breaks"_s) || SetBreaks(command[u"breaks"], half, columns));
}

/// On any failure memory takes back what it held before.
template <class Set>
QJsonObject Run(const QJsonObject& command, ColumnHalf half, Set& columns, CCfgStore& settings) {
    const Set before = columns;
    if (!Change(command, half, columns)) {
        columns = before;
        return Refusal(kUsage, LoadText(Text::RequestUnknown));
    }
    if (settings.Profile().Change([&] { return settings.SaveAll(); })) return {{u"ok"_s, true}};
    columns = before;
    return Refusal(kFailed, FormatText<Text::ColumnsNotSaved>(settings.Tree().Error()));
}

}  // namespace

QJsonObject RunColumnCommand(const QJsonObject& command, CCfgStore& settings) {
    const auto half = HalfOf(command);
    if (half && command[u"columns"].toString() == u"list")
        return Run(command, *half, settings.ListColumns(), settings);
    if (half && command[u"columns"].toString() == u"tree")
        return Run(command, *half, settings.TreeColumns(), settings);
    return Refusal(kUsage, LoadText(Text::RequestUnknown));
}
