#pragma once

#include "changes/CRecordChanges.h"
#include "changes/CRecordSave.h"
#include "changes/CTimersOfRecords.h"

class CVORec;
struct FrameContext;
struct TimerOutcome;

/// The commands that make, change and delete records, those of their timers among them.
class CFrameRecords {
 public:
    explicit CFrameRecords(const FrameContext& context);

    [[nodiscard]] CRecordChanges& Changes() { return m_changes; }
    /// flags: QuickFlag.
    void QuickEntry(int flags);
    void EditSelected();
    /// Through the dialog, then into the store.
    void Edit(const QString& id);
    /// The stored defaults of the mode's records.
    void EditDefaults();
    void CopySelected();
    void DeleteSelected();
    void MarkSelected(int mark);
    /// action: a TimerAction.
    void ApplyTimers(int action);
    void StopTimers();
    void PauseTimers();

 private:
    [[nodiscard]] bool MayAdd();
    [[nodiscard]] bool EditInDialog(CVORec& record, CVORec* untouched = nullptr) const;
    [[nodiscard]] CRecordSave::End Save(DialogRecord& edited);
    TimerOutcome StopByTrueTime(QStringList& ids);
    void StopSelected();
    void TellIfUnsaved(const TimerOutcome& outcome);

    const FrameContext& m_context;
    COwnTimers m_timers;
    CRecordChanges m_changes;
    CRecordSave m_save;
};
