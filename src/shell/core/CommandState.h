#pragma once

#include "calendar/PeriodFilter.h"

/// What decides whether a command is offered and checked: a picture of the window at one moment.
struct CommandState {
    bool timeMode = true;
    bool listIsActive = true;  ///< the list is in front, not the note that stands for an empty one
    bool busy = false;         ///< records are being read or changed: nothing may be started
    int selected = 0;          ///< selected records of the active view; none when that isn't the list
    int listed = 0;
    int preset = PeriodCode::kAll;
    bool canStep = false;
    bool anyTimer = false;
    bool anyRunning = false;
    int listLayout = 4;
    bool bar1Shown = true;
    bool bar2Shown = true;
    bool statusBarShown = true;
};
