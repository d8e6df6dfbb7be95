#pragma once

#include "calendar/PeriodFilter.h"

#include <QSet>

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
    bool useDependencies = false;
    bool treeShown = false;
    bool treeStacked = false;
    bool treeHasNode = false;    ///< a node other than the root is selected
    bool treeCanExpand = false;  ///< the selected node has nodes beneath it
    QSet<int> filters = {};      ///< the filter commands whose condition is set

    /// What the window has. A command that would need what is missing isn't offered.
    struct Has {
        bool modes = false;           ///< records of both kinds can be shown
        bool tree = false;            ///< the data tree
        bool defaults = false;        ///< new records from stored defaults
        bool defaultsDialog = false;  ///< the dialog of stored defaults
        bool lists = false;           ///< pick lists with their items
        bool bars = false;            ///< tool bars whose buttons can be chosen
        bool palette = false;         ///< commands can be found by their words
    };
    Has has = {};
};
