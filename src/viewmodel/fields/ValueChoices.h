#pragma once

#include "lang/Text.h"

#include <QString>
#include <cstdint>
#include <optional>
#include <span>

/// One value of a setting that is chosen from a fixed list. The numbers are stored as they stand.
struct ValueChoice {
    std::int32_t value;
    Text text;
};

/// The lists, in the order in which they are shown.
namespace ValueChoices {

inline constexpr ValueChoice kDaysOfWeek[] = {
    {0, Text::Sunday},   {1, Text::Monday}, {2, Text::Tuesday},  {3, Text::Wednesday},
    {4, Text::Thursday}, {5, Text::Friday}, {6, Text::Saturday},
};
inline constexpr ValueChoice kPrecisions[] = {
    {0, Text::Places0}, {1, Text::Places1}, {2, Text::Places2}, {3, Text::Places3},
    {4, Text::Places4}, {5, Text::Places5}, {6, Text::Places6},
};
/// Not 0, 1, 2: these numbers have always been stored.
inline constexpr ValueChoice kRoundTypes[] = {
    {0, Text::RoundNone},
    {16, Text::RoundExpansion},
    {32, Text::RoundNearest},
};
inline constexpr ValueChoice kSpanFormats[] = {{0, Text::SpanAsDecimal}, {1, Text::SpanAsClock}};
/// The first of these two is for the region to say.
inline constexpr ValueChoice kClockFormats[] = {
    {0, Text::ChoiceAsRegion}, {24, Text::Clock24}, {12, Text::Clock12}};
inline constexpr ValueChoice kDistanceUnits[] = {
    {0, Text::ChoiceAsRegion}, {1, Text::DistancesMetric}, {2, Text::DistancesMiles}};
inline constexpr ValueChoice kListGroupings[] = {
    {0, Text::GroupsNone}, {1, Text::GroupsDays}, {2, Text::GroupsWeeks}, {3, Text::GroupsMonths}};
inline constexpr ValueChoice kTimerActions[] = {
    {0, Text::TimersContinue},
    {1, Text::TimersPause},
    {2, Text::TimersStop},
};
inline constexpr ValueChoice kYearFormats[] = {
    {0, Text::YearFull},
    {1, Text::YearShort},
    {2, Text::YearNone},
};
inline constexpr ValueChoice kWeekNumberTypes[] = {
    {0, Text::WeekIsoRule},
    {1, Text::WeekSimpleRule},
    {2, Text::WeekSundayRule},
    {3, Text::WeekMondayRule},
};
inline constexpr ValueChoice kPostProcessings[] = {
    {0, Text::AfterExportAsk},
    {1, Text::AfterExportNothing},
    {2, Text::AfterExportDelete},
    {3, Text::AfterExportMark},
};
inline constexpr ValueChoice kPenStyles[] = {
    {0, Text::PenSolid},   {1, Text::PenDashes},     {2, Text::PenDots},
    {3, Text::PenDashDot}, {4, Text::PenDashDotDot},
};

}  // namespace ValueChoices

/// The words of a value; none for a number that isn't in the list, such as a stored rounding type of 1.
[[nodiscard]] QString TextOf(std::span<const ValueChoice> choices, std::int64_t value);
/// The value of these words.
[[nodiscard]] std::optional<std::int32_t> NumberOf(std::span<const ValueChoice> choices, const QString& text);
