#include "shell/options/OptionsTable.h"

namespace {

using namespace ValueChoices;
using enum OptionKind;

/// A row that is called like a field of a record.
constexpr OptionRow Named(FieldId field, const char* setting) {
    return {2, Check, Text{}, setting, {}, field};
}

constexpr OptionRow kRows[] = {
    {0, Group, Text::OptConfirmation, nullptr, {}},
    {1, Check, Text::OptConfirmCopy, "confirmCopy", {}},
    {1, Check, Text::OptConfirmDelete, "confirmDelete", {}},
    {1, Check, Text::OptConfirmMark, "confirmMark", {}},
    {1, Check, Text::OptConfirmAddItem, "confirmAddListItem", {}},
    {1, Check, Text::OptConfirmDeleteItem, "confirmDeleteListItem", {}},
    {0, Group, Text::OptDataEntry, nullptr, {}},
    {1, Group, Text::OptOdometer, nullptr, {}},
    {2, Number, Text::OptOdometerLast, "odometerLastEnd", {}},
    {2, Check, Text::OptOdometerSuggest, "odometerSuggestStart", {}},
    {1, Check, Text::OptAccumulate, "accumulateOnReentry", {}},
    {1, Check, Text::OptAddMinute, "addMinuteOnSuccessive", {}},
    {1, Check, Text::OptLockDuration, "lockDurationOnTimeEdit", {}},
    {1, Check, Text::OptLockStart, "lockStartOnDurationEdit", {}},
    {0, Group, Text::OptFunctionality, nullptr, {}},
    {1, Check, Text::OptUseDependencies, "useDependencies", {}},
    {1, Check, Text::OptRefreshOnSync, "refreshOnSyncEnd", {}},
    {0, Group, Text::OptImportExport, nullptr, {}},
    {1, Radios, Text::OptPostProcessing, "exportPostProcessing", kPostProcessings},
    {0, Group, Text::OptInterface, nullptr, {}},
    {1, Check, Text::OptResort, "resortOnChange", {}},
    {1, Choice, Text::OptListGroups, "listGroups", kListGroupings},
    {1, Check, Text::OptShowDayWeek, "showDayWeekNumbers", {}},
    {1, Check, Text::OptShowDialog, "dialogOnQuickEntry", {}},
    {1, Check, Text::OptCloseToTray, "closeToTray", {}},
    {0, Group, Text::OptPersistence, nullptr, {}},
    {1, Group, Text::OptTimeItems, nullptr, {}},
    Named(FieldId::TimeItem1, "keepTimeList109"),
    Named(FieldId::TimeItem2, "keepTimeList110"),
    Named(FieldId::TimeItem3, "keepTimeList111"),
    Named(FieldId::TimeItem4, "keepTimeList112"),
    Named(FieldId::TimeAmount, "keepTimeList115"),
    Named(FieldId::TimeRate, "keepTimeList113"),
    Named(FieldId::TimeItem5, "keepTimeList114"),
    {1, Group, Text::OptExpenseItems, nullptr, {}},
    Named(FieldId::ExpenseItem1, "keepExpenseList131"),
    Named(FieldId::ExpenseItem2, "keepExpenseList132"),
    Named(FieldId::ExpenseItem3, "keepExpenseList133"),
    Named(FieldId::ExpenseItem4, "keepExpenseList134"),
    Named(FieldId::ExpenseAmount, "keepExpenseList136"),
    Named(FieldId::ExpenseItem5, "keepExpenseList135"),
    {2, Check, Text::OptKeepDistance, "keepDistance", {}},
    {2, Check, Text::OptKeepDistanceRate, "keepDistanceRate", {}},
    {0, Group, Text::OptPreferences, nullptr, {}},
    {1, Group, Text::OptPrecision, nullptr, {}},
    {2, Choice, Text::OptPrecisionDuration, "precisionDuration", kPrecisions},
    {2, Choice, Text::OptPrecisionDistances, "precisionDistance", kPrecisions},
    {2, Choice, Text::OptPrecisionRates, "precisionRate", kPrecisions},
    {2, Choice, Text::OptPrecisionAmounts, "precisionAmount", kPrecisions},
    {1, Group, Text::OptRounding, nullptr, {}},
    {2, Group, Text::OptRoundStart, nullptr, {}},
    {3, Choice, Text::OptRoundType, "roundStartType", kRoundTypes},
    {3, Number, Text::OptRoundMinutes, "roundStartMinutes", {}},
    {2, Group, Text::OptRoundEnd, nullptr, {}},
    {3, Choice, Text::OptRoundType, "roundEndType", kRoundTypes},
    {3, Number, Text::OptRoundMinutes, "roundEndMinutes", {}},
    {2, Group, Text::OptRoundDuration, nullptr, {}},
    {3, Choice, Text::OptRoundType, "roundDurationType", kRoundTypes},
    {3, Number, Text::OptRoundMinutes, "roundDurationMinutes", {}},
    {1, Radios, Text::OptWeekNumberType, "weekNumberType", kWeekNumberTypes},
    {1, Choice, Text::OptFirstDay, "firstDayOfWeek", kDaysOfWeek},
    {1, Choice, Text::OptSpanFormat, "spanDisplayFormat", kSpanFormats},
    {1, Choice, Text::OptYearFormat, "yearDisplayFormat", kYearFormats},
    {1, Choice, Text::OptClockFormat, "clockFormat", kClockFormats},
    {1, Choice, Text::OptDistanceUnit, "distanceUnit", kDistanceUnits},
    {0, Group, Text::OptTimerBehavior, nullptr, {}},
    {1, Choice, Text::OptOnNewTimer, "timerOnNewTimer", kTimerActions},
    {1, Choice, Text::OptOnExit, "timerOnExit", kTimerActions},
};

}  // namespace

std::span<const OptionRow> OptionRows() {
    return kRows;
}
