#pragma once

#include "app/RecordMode.h"
#include "viewmodel/commands/CommandState.h"

#include <QString>
#include <functional>

class CActions;
class CCfgStore;
class CClock;
class CFrameControl;
class CProgress;
class CPrompt;
class CPulldownCatalogue;
class CRecordListModel;
class CRecordListView;
class CRecordTimers;
class CTreeControl;
class CVelmarchDoc;
class CVORec;

/// What the commands of the window need. All must outlive them. What stands below the home may be missing:
/// a command that would need it isn't offered.
struct FrameContext {
    CVelmarchDoc& document;
    CRecordTimers& timers;
    CCfgStore& settings;
    CPrompt& prompt;
    CProgress& progress;
    const CClock& clock;
    CRecordListModel& model;
    CRecordListView& view;
    CFrameControl& control;
    QString home;

    /// Lets the user edit a record of either kind; true when accepted. The record dialogs, or a test.
    /// Missing: a new record is added as it is.
    std::function<bool(CVORec& record)> editRecord = {};
    /// Lets the user change the settings; true when accepted.
    std::function<bool()> options = {};
    /// Shows the records of a mode.
    std::function<void(RecordMode mode)> switchMode = {};
    CTreeControl* tree = nullptr;
    /// Lets the user choose a stored default that fills the record; false: cancelled.
    std::function<bool(CVORec& record)> fillFromDefaults = {};
    /// The dialog of stored defaults.
    std::function<void()> runDefaults = {};
    CPulldownCatalogue* catalogue = nullptr;
    CActions* actions = nullptr;
    /// The state of the window, and how it carries out a command by its number: for the palette.
    std::function<CommandState()> state = {};
    std::function<void(int command)> runCommand = {};
};
