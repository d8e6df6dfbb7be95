#include "config/SettingsTable.h"

#include "lang/FormatText.h"

#include <QStringList>
#include <algorithm>
#include <limits>
#include <type_traits>

namespace {

constexpr std::int64_t kLeastInt = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kGreatestInt = std::numeric_limits<std::int32_t>::max();
/// The numbers of rounding are stored as they stand; they are not 0, 1, 2.
constexpr std::int64_t kRoundTypes[] = {0, 16, 32};

constexpr SettingRow Flag(int index, const char* name, bool Settings::*member, bool preset) {
    return {index, name, SettingType::Flag, member, preset ? 1 : 0, 0, 1, {}};
}
constexpr SettingRow Int(int index, const char* name, std::int32_t Settings::*member, std::int64_t preset,
                         std::int64_t least, std::int64_t greatest) {
    return {index, name, SettingType::Int, member, preset, least, greatest, {}};
}
constexpr SettingRow AnyInt(int index, const char* name, std::int32_t Settings::*member,
                            std::int64_t preset) {
    return Int(index, name, member, preset, kLeastInt, kGreatestInt);
}
constexpr SettingRow Rounding(int index, const char* name, std::int32_t Settings::*member) {
    return {index, name, SettingType::Int, member, 0, 0, 32, kRoundTypes};
}
constexpr SettingRow Minutes(int index, const char* name, std::int32_t Settings::*member) {
    return Int(index, name, member, 0, 0, 59);
}
constexpr SettingRow Precision(int index, const char* name, std::int32_t Settings::*member,
                               std::int64_t preset) {
    return Int(index, name, member, preset, 0, 6);
}
constexpr SettingRow Colour(int index, const char* name, std::uint32_t Settings::*member,
                            std::int64_t preset) {
    return {index, name, SettingType::Colour, member, preset, 0, 0xFFFFFF, {}};
}

constexpr SettingRow kSettings[] = {
    Flag(0, "confirmCopy", &Settings::confirmCopy, true),
    Flag(1, "confirmDelete", &Settings::confirmDelete, true),
    Flag(2, "confirmMark", &Settings::confirmMark, true),
    Flag(3, "confirmAddListItem", &Settings::confirmAddListItem, false),
    Flag(4, "confirmDeleteListItem", &Settings::confirmDeleteListItem, true),
    // The reserved ones have no reader; they keep their places, so that the numbering stays what it is.
    Flag(5, "reservedFlag5", &Settings::reservedFlag5, false),
    Flag(6, "reservedFlag6", &Settings::reservedFlag6, false),
    Flag(7, "reservedFlag7", &Settings::reservedFlag7, true),
    Flag(8, "lastModeWasTime", &Settings::lastModeWasTime, true),
    Flag(9, "odometerSuggestStart", &Settings::odometerSuggestStart, true),
    Flag(10, "reservedFlag10", &Settings::reservedFlag10, true),
    Flag(11, "reservedFlag11", &Settings::reservedFlag11, false),
    Flag(12, "keepTimeList109", &Settings::keepTimeList109, true),
    Flag(13, "keepTimeList110", &Settings::keepTimeList110, true),
    Flag(14, "keepTimeList111", &Settings::keepTimeList111, true),
    Flag(15, "keepTimeList112", &Settings::keepTimeList112, true),
    Flag(16, "keepTimeList115", &Settings::keepTimeList115, false),
    Flag(17, "keepTimeList113", &Settings::keepTimeList113, true),
    Flag(18, "keepTimeList114", &Settings::keepTimeList114, true),
    Flag(19, "keepExpenseList131", &Settings::keepExpenseList131, true),
    Flag(20, "keepExpenseList132", &Settings::keepExpenseList132, true),
    Flag(21, "keepExpenseList133", &Settings::keepExpenseList133, true),
    Flag(22, "keepExpenseList134", &Settings::keepExpenseList134, true),
    Flag(23, "keepExpenseList136", &Settings::keepExpenseList136, false),
    Flag(24, "keepExpenseList135", &Settings::keepExpenseList135, true),
    Flag(25, "keepDistance", &Settings::keepDistance, true),
    Flag(26, "keepDistanceRate", &Settings::keepDistanceRate, true),
    Rounding(27, "roundStartType", &Settings::roundStartType),
    Rounding(28, "roundEndType", &Settings::roundEndType),
    Rounding(29, "roundDurationType", &Settings::roundDurationType),
    Minutes(30, "roundStartMinutes", &Settings::roundStartMinutes),
    Minutes(31, "roundEndMinutes", &Settings::roundEndMinutes),
    Minutes(32, "roundDurationMinutes", &Settings::roundDurationMinutes),
    Int(33, "odometerLastEnd", &Settings::odometerLastEnd, -1, -1, kGreatestInt),
    Int(34, "firstDayOfWeek", &Settings::firstDayOfWeek, 0, 0, 6),
    Int(35, "iconColumnWidth", &Settings::iconColumnWidth, 40, 1, 4096),
    AnyInt(36, "reservedInt36", &Settings::reservedInt36, -1),
    AnyInt(37, "reservedInt37", &Settings::reservedInt37, -1),
    Flag(38, "sortAscendingTime", &Settings::sortAscendingTime, false),
    Flag(39, "sortAscendingExpense", &Settings::sortAscendingExpense, false),
    AnyInt(40, "reservedInt40", &Settings::reservedInt40, 50),
    Flag(41, "reservedFlag41", &Settings::reservedFlag41, true),
    Flag(42, "accumulateOnReentry", &Settings::accumulateOnReentry, false),
    Flag(43, "lockDurationOnTimeEdit", &Settings::lockDurationOnTimeEdit, false),
    Flag(44, "lockStartOnDurationEdit", &Settings::lockStartOnDurationEdit, true),
    Flag(45, "useDependencies", &Settings::useDependencies, false),
    Flag(46, "reservedFlag46", &Settings::reservedFlag46, true),
    Int(47, "sortColumnTime", &Settings::sortColumnTime, 0, 0, 16),
    Int(48, "sortColumnExpense", &Settings::sortColumnExpense, 17, 17, 33),
    Int(49, "spanDisplayFormat", &Settings::spanDisplayFormat, 0, 0, 1),
    Flag(50, "refreshOnSyncEnd", &Settings::refreshOnSyncEnd, true),
    Int(51, "yearDisplayFormat", &Settings::yearDisplayFormat, 1, 0, 2),
    Int(52, "listLayout", &Settings::listLayout, 4, 1, 4),
    Int(53, "alternateRows", &Settings::alternateRows, 1, 0, 1),
    Colour(54, "alternateRowColour", &Settings::alternateRowColour, 0xF8F8F8),
    Int(55, "gridLines", &Settings::gridLines, 1, 0, 1),
    Colour(56, "gridLineColour", &Settings::gridLineColour, 0xE1E9EA),
    // Solid, dashes, dots, dash and dot, dash and two dots.
    Int(57, "gridLineStyle", &Settings::gridLineStyle, 0, 0, 4),
    Int(58, "gridLineWidth", &Settings::gridLineWidth, 0, 0, 10),
    Colour(59, "lineColour1", &Settings::lineColour1, 0x000000),
    Colour(60, "lineColour2", &Settings::lineColour2, 0x916F70),
    Colour(61, "lineColour3", &Settings::lineColour3, 0xC49797),
    Colour(62, "lineColour4", &Settings::lineColour4, 0x8C8C8C),
    Precision(63, "precisionDuration", &Settings::precisionDuration, 4),
    Precision(64, "precisionDistance", &Settings::precisionDistance, 2),
    Precision(65, "precisionRate", &Settings::precisionRate, 3),
    Precision(66, "precisionAmount", &Settings::precisionAmount, 2),
    Int(67, "exportPostProcessing", &Settings::exportPostProcessing, 0, 0, 3),
    Int(68, "timerOnNewTimer", &Settings::timerOnNewTimer, 0, 0, 2),
    Int(69, "timerOnExit", &Settings::timerOnExit, 1, 0, 2),
    Flag(70, "resortOnChange", &Settings::resortOnChange, true),
    Flag(71, "dialogOnQuickEntry", &Settings::dialogOnQuickEntry, true),
    Int(72, "weekNumberType", &Settings::weekNumberType, 1, 0, 3),
    Flag(73, "showDayWeekNumbers", &Settings::showDayWeekNumbers, true),
    Flag(74, "addMinuteOnSuccessive", &Settings::addMinuteOnSuccessive, true),
};

/// Hours as they stand, 0 for those of the region.
constexpr std::int64_t kClockFormats[] = {0, 12, 24};

constexpr SettingRow kOwnSettings[] = {
    {.index = 75,
     .name = "clockFormat",
     .type = SettingType::Int,
     .member = &Settings::clockFormat,
     .preset = 0,
     .least = 0,
     .greatest = 24,
     .only = kClockFormats},
    Int(76, "distanceUnit", &Settings::distanceUnit, 0, 0, 2),
    Int(77, "firstSteps", &Settings::firstSteps, 0, 0, 2),
    Int(78, "listGroups", &Settings::listGroups, 0, 0, 3),
    Flag(79, "linesOnGrid", &Settings::linesOnGrid, false),
    Flag(80, "closeToTray", &Settings::closeToTray, false),
};

constexpr bool InIndexOrder(std::span<const SettingRow> rows, std::size_t first) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].index != static_cast<int>(first + i)) return false;
    return true;
}
static_assert(std::size(kSettings) == 75);
static_assert(InIndexOrder(kSettings, 0), "the place of a row is its number in the stored form");
static_assert(InIndexOrder(kOwnSettings, std::size(kSettings)), "own settings are numbered on");

const SettingRow* FindIn(std::span<const SettingRow> rows, const QString& name) {
    const auto found = std::ranges::find_if(
        rows, [&name](const SettingRow& row) { return name == QLatin1String(row.name); });
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace

std::span<const SettingRow> SettingsTable() {
    return kSettings;
}

std::span<const SettingRow> OwnSettingsTable() {
    return kOwnSettings;
}

const SettingRow* FindSetting(const QString& name) {
    const SettingRow* row = FindIn(kSettings, name);
    return row ? row : FindIn(kOwnSettings, name);
}

std::int64_t SettingValue(const Settings& settings, const SettingRow& row) {
    return std::visit([&settings](auto member) { return static_cast<std::int64_t>(settings.*member); },
                      row.member);
}

void PutSetting(Settings& settings, const SettingRow& row, std::int64_t value) {
    std::visit(
        [&settings, value](auto member) {
            using Value = std::remove_reference_t<decltype(settings.*member)>;
            settings.*member = static_cast<Value>(value);
        },
        row.member);
}

bool IsAllowed(const SettingRow& row, std::int64_t value) {
    if (!row.only.empty()) return std::ranges::find(row.only, value) != row.only.end();
    return value >= row.least && value <= row.greatest;
}

QString AllowedValues(const SettingRow& row) {
    if (row.only.empty() && row.greatest - row.least > 1)
        return FormatText<Text::SettingRange>(static_cast<int>(row.least), static_cast<int>(row.greatest));
    QStringList values;
    for (const std::int64_t value : row.only) values.append(QString::number(value));
    if (values.isEmpty()) values = {QString::number(row.least), QString::number(row.greatest)};
    const QString last = values.takeLast();
    return FormatText<Text::SettingChoice>(values.join(LoadText(Text::SettingChoiceComma)), last);
}
