#pragma once

#include "calendar/DateTimeVal.h"
#include "lang/Text.h"

#include <span>

/// One preset that the user can choose. The numbers are stored as they stand.
struct PeriodPresetRow {
    int preset;
    int command;  ///< number of its menu command
    Text name;    ///< "This week"
    Text token;   ///< by which it is stored
};

/// The 24 presets in the order in which they are offered.
[[nodiscard]] std::span<const PeriodPresetRow> PeriodPresets();
[[nodiscard]] const PeriodPresetRow* FindPeriodPreset(int preset);

/// Preset numbers that are no row of the table.
namespace PeriodCode {
inline constexpr int kNotChosen = 0;
inline constexpr int kToday = 1;
inline constexpr int kThisMonth = 4;
inline constexpr int kSingleDate = 5;
inline constexpr int kAll = 6;
inline constexpr int kRange = 7;
inline constexpr int kYesterday = 16;
}  // namespace PeriodCode

/// The two dates of a preset, worked out from today.
struct PresetDates {
    DateTimeVal start;
    DateTimeVal end;
};

/// What came of working out a preset.
enum class PresetOutcome {
    Done,
    NoDates,  ///< the preset has a name but no computation: the dates stay as they are
    Failed    ///< today is no date
};

[[nodiscard]] PresetOutcome ComputePreset(int preset, const DateTimeVal& today, int firstDayOfWeek,
                                          PresetDates& out);
