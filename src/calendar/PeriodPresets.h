#pragma once

#include "calendar/DateTimeVal.h"

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
