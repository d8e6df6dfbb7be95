#pragma once

#include "cli/doctor/Finding.h"

#include <span>

struct ReadingRoom;

/// What must have been read for an examination.
enum class ExaminationNeeds {
    Store,
    Settings,
    SettingsBesideRecords  ///< what is in the settings is held against the records, if there are any
};

/// One examination of what lies in a home.
struct Examination {
    const char* name;
    ExaminationNeeds needs;
    Finding (*examine)(const char* name, ReadingRoom& room);
};

/// In their order; each stands on those before it.
[[nodiscard]] std::span<const Examination> Examinations();
