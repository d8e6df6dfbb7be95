#pragma once

#include "cli/doctor/Finding.h"

#include <span>

struct ReadOnlyHome;

/// What must have been read for an examination.
enum class ExaminationContext {
    Store,
    Settings,
    SettingsBesideRecords  ///< what is in the settings is held against the records, if there are any
};

/// One examination of what lies in a home.
struct Examination {
    const char* name;
    ExaminationContext context;
    Finding (*examine)(const char* name, ReadOnlyHome& reader);
};

/// In their order; each stands on those before it.
[[nodiscard]] std::span<const Examination> Examinations();
