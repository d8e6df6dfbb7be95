#pragma once

#include "shell/core/CPeriodCommands.h"
#include "shell/core/CRecordCommands.h"
#include "shell/core/CommandTable.h"

#include <functional>

class CCfgStore;
class CClock;
class CFrameDoor;
class CProgress;
class CPrompt;
class CRecordListModel;
class CRecordListView;
class CRecordTimers;
class CTRecord;
class CVelmarchDoc;

/// Carries out the commands of the window: a table from what a command runs to the operation that does it.
class CFrameCommands {
 public:
    struct Around {
        CVelmarchDoc& document;
        CRecordTimers& timers;
        CCfgStore& settings;
        CPrompt& prompt;
        CProgress& progress;
        const CClock& clock;
        CRecordListModel& model;
        CRecordListView& view;
        CFrameDoor& door;
        QString home;
        /// Lets the user edit a record; true when accepted. The record dialog, or a test.
        std::function<bool(CTRecord& record)> edit;
        /// Lets the user change the settings; true when accepted.
        std::function<bool()> options;
    };
    explicit CFrameCommands(Around around);

    void Run(const CommandRow& row);
    /// Edits one record through the dialog and stores it.
    void EditRecord(const QString& id);
    [[nodiscard]] CPeriodCommands& Period() { return m_period; }

    /// Whether something can carry it out; for the test over the command table.
    [[nodiscard]] static bool HasHandler(::Run run);

 private:
    using Handler = void (CFrameCommands::*)(int argument);
    [[nodiscard]] static Handler HandlerOf(::Run run);

    void QuickEntry(int flags);
    void EditSelected(int);
    void CopySelected(int);
    void DeleteSelected(int);
    void MarkSelected(int code);
    void SelectAll(int);
    void SelectNone(int);
    void Sort(int);
    void Layout(int layout);
    void ToggleBar1(int);
    void ToggleBar2(int);
    void ToggleStatusBar(int);
    void Refresh(int);
    void PeriodPreset(int preset) { m_period.Preset(preset); }
    void PeriodAll(int) { m_period.All(); }
    void PeriodDay(int);
    void PeriodPrevious(int) { m_period.StepBack(); }
    void PeriodNext(int) { m_period.StepForward(); }
    void ClearFilter(int) { m_period.ClearConditions(); }
    void FilterTimers(int) { m_period.WithTimers(); }
    void ApplyTimers(int action);
    void StopTimers(int);
    void PauseTimers(int);
    void Options(int);
    void About(int);
    void Exit(int);

    Around m_around;
    CPeriodCommands m_period;
    CRecordCommands m_records;
};
