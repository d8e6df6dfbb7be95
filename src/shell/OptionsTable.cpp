#include "shell/OptionsTable.h"

namespace {

constexpr OptionChoice kPlaces[] = {
    {0, Text::Places0}, {1, Text::Places1}, {2, Text::Places2}, {3, Text::Places3},
    {4, Text::Places4}, {5, Text::Places5}, {6, Text::Places6},
};
constexpr OptionChoice kRounding[] = {
    {0, Text::RoundNone}, {16, Text::RoundExpansion}, {32, Text::RoundNearest}};
constexpr OptionChoice kWeekRules[] = {
    {0, Text::WeekIsoRule},
    {1, Text::WeekSimpleRule},
    {2, Text::WeekSundayRule},
    {3, Text::WeekMondayRule},
};
constexpr OptionChoice kDays[] = {
    {0, Text::Sunday},   {1, Text::Monday}, {2, Text::Tuesday},  {3, Text::Wednesday},
    {4, Text::Thursday}, {5, Text::Friday}, {6, Text::Saturday},
};
constexpr OptionChoice kSpanForms[] = {{0, Text::SpanAsDecimal}, {1, Text::SpanAsClock}};
constexpr OptionChoice kYearForms[] = {{0, Text::YearFull}, {1, Text::YearShort}, {2, Text::YearNone}};
constexpr OptionChoice kTimerActions[] = {
    {0, Text::TimersContinue}, {1, Text::TimersPause}, {2, Text::TimersStop}};

using enum OptionKind;

constexpr OptionRow kRows[] = {
    {0, Group, Text::OptConfirmation, nullptr, {}},
    {1, Check, Text::OptConfirmCopy, "confirmCopy", {}},
    {1, Check, Text::OptConfirmDelete, "confirmDelete", {}},
    {1, Check, Text::OptConfirmMark, "confirmMark", {}},
    {0, Group, Text::OptDataEntry, nullptr, {}},
    {1, Check, Text::OptAccumulate, "accumulateOnReentry", {}},
    {1, Check, Text::OptAddMinute, "addMinuteOnSuccessive", {}},
    {1, Check, Text::OptLockDuration, "lockDurationOnTimeEdit", {}},
    {1, Check, Text::OptLockStart, "lockStartOnDurationEdit", {}},
    {0, Group, Text::OptFunctionality, nullptr, {}},
    {1, Check, Text::OptRefreshOnSync, "refreshOnSyncEnd", {}},
    {0, Group, Text::OptInterface, nullptr, {}},
    {1, Check, Text::OptResort, "resortOnChange", {}},
    {1, Check, Text::OptShowDayWeek, "showDayWeekNumbers", {}},
    {1, Check, Text::OptShowDialog, "dialogOnQuickEntry", {}},
    {0, Group, Text::OptPreferences, nullptr, {}},
    {1, Group, Text::OptPrecision, nullptr, {}},
    {2, Choice, Text::OptPrecisionDuration, "precisionDuration", kPlaces},
    {2, Choice, Text::OptPrecisionRates, "precisionRate", kPlaces},
    {2, Choice, Text::OptPrecisionAmounts, "precisionAmount", kPlaces},
    {1, Group, Text::OptRounding, nullptr, {}},
    {2, Group, Text::OptRoundStart, nullptr, {}},
    {3, Choice, Text::OptRoundType, "roundStartType", kRounding},
    {3, Number, Text::OptRoundMinutes, "roundStartMinutes", {}},
    {2, Group, Text::OptRoundEnd, nullptr, {}},
    {3, Choice, Text::OptRoundType, "roundEndType", kRounding},
    {3, Number, Text::OptRoundMinutes, "roundEndMinutes", {}},
    {2, Group, Text::OptRoundDuration, nullptr, {}},
    {3, Choice, Text::OptRoundType, "roundDurationType", kRounding},
    {3, Number, Text::OptRoundMinutes, "roundDurationMinutes", {}},
    {1, Radios, Text::OptWeekNumberType, "weekNumberType", kWeekRules},
    {1, Choice, Text::OptFirstDay, "firstDayOfWeek", kDays},
    {1, Choice, Text::OptSpanFormat, "spanDisplayFormat", kSpanForms},
    {1, Choice, Text::OptYearFormat, "yearDisplayFormat", kYearForms},
    {0, Group, Text::OptTimerBehavior, nullptr, {}},
    {1, Choice, Text::OptOnNewTimer, "timerOnNewTimer", kTimerActions},
    {1, Choice, Text::OptOnExit, "timerOnExit", kTimerActions},
};

}  // namespace

std::span<const OptionRow> OptionRows() {
    return kRows;
}
