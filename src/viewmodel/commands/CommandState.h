#pragma once

#include "calendar/PeriodFilter.h"

#include <QSet>
#include <QString>

/// What decides whether a command is offered and checked: a picture of the window at one moment.
struct CommandState {
    bool timeMode = true;
    bool listIsActive = true;  ///< empty or not: no other view than the list's is in front
    bool busy = false;         ///< records are being read or changed: nothing may be started
    int selected = 0;          ///< selected records of the list; none while another view is active
    int listed = 0;
    QString undo = {};  ///< what would be undone, in words; empty: nothing
    QString redo = {};  ///< what would be done again
    int preset = PeriodCode::kAll;
    bool canStep = false;
    bool anyTimer = false;
    bool anyRunning = false;
    bool selectedHasTimer = false;  ///< of the selected records one at least
    bool selectedRuns = false;      ///< the same, and it runs
    int listLayout = 4;
    int listGroups = 0;      ///< a ListGroups
    bool hasGroups = false;  ///< the list shows heads: it is sorted by date, in columns or lines
    bool workBarShown = true;
    bool bar1Shown = true;
    bool bar2Shown = true;
    bool statusBarShown = true;
    bool useDependencies = false;
    bool reportIsActive = false;      ///< a report is in front, and the list hidden behind it
    bool canRunAgain = false;         ///< its records are those of the mode
    bool reportShrinks = false;       ///< to the width of the window
    bool reportHasSelection = false;  ///< text that can be copied
    bool reportHasTable = false;
    bool reportHasChart = false;  ///< there is something that a chart can show
    bool chartShown = false;
    bool chartHasNextSum = false;
    bool treeShown = false;
    bool treeStacked = false;
    bool treeHasNode = false;          ///< a node other than the root is selected
    bool treeCanExpand = false;        ///< the selected node has nodes beneath it
    QSet<int> filters = {};            ///< the filter commands whose condition is set
    bool timersAlone = false;          ///< only records with a timer are shown, of any day
    bool isFinding = false;            ///< the bar of the search in the list is shown
    bool findsEverywhere = false;      ///< beyond the filter
    bool hasRegionalSettings = false;  ///< the desktop has a program for them
};
