#pragma once

#include "lang/Text.h"

/// How an option is written.
enum class OptionShape {
    Flag,   ///< --timer
    YesNo,  ///< --billable, --billable yes, --billable no; bare it means yes
    Value,  ///< --date DATE
    Values  ///< the same, as often as wanted
};

/// One option of a command.
struct OptionRow {
    const char* name;   ///< without the dashes
    const char* value;  ///< what its value is called in the help
    OptionShape shape;
    Text description;
};
