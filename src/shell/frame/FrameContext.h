#pragma once

#include <QString>

class CActions;
class CCfgStore;
class CClock;
class CConditionStrip;
class CFrameControl;
class CFrameDialogs;
class CLauncher;
class CListFindBar;
class CProgress;
class CPrompt;
class CPulldownCatalogue;
class CRecordListModel;
class CRecordListView;
class CRecordTimers;
class CReportPane;
class CTreeControl;
class CVelmarchDoc;
class CWorkBar;

/// What the commands of the window need. All must outlive them.
struct FrameContext {
    CVelmarchDoc& document;
    CRecordTimers& timers;
    CCfgStore& settings;
    CPulldownCatalogue& catalogue;
    CPrompt& prompt;
    CProgress& progress;
    CLauncher& launcher;
    const CClock& clock;
    CRecordListModel& model;
    CRecordListView& view;
    CListFindBar& findBar;
    CConditionStrip& conditions;
    CWorkBar& workBar;
    CReportPane& report;
    CTreeControl& tree;
    CActions& actions;
    CFrameControl& control;
    CFrameDialogs& dialogs;
    QString home;
};
