#pragma once

#include "changes/CRecordChanges.h"
#include "changes/CRecordSave.h"
#include "changes/CTimersOfRecords.h"

#include <QStringList>
#include <functional>

class CRecentWork;
class CVORec;
struct QuickEntryContext;
struct QuickOutcome;
struct FrameContext;
struct TimerOutcome;

/// The commands that make, change and delete records, those of their timers among them.
class CFrameRecords {
 public:
    CFrameRecords(const FrameContext& context, CRecentWork& recent);

    [[nodiscard]] CRecordChanges& Changes() { return m_changes; }
    /// flags: QuickFlag.
    void QuickEntry(int flags);
    /// The stored defaults of the mode by name, without the empty record.
    [[nodiscard]] QStringList DefaultNames() const;
    void NewFromDefault(const QString& name);
    /// A record of now with its timer, filled by fill, without the dialog. False when it could not be stored,
    /// which the user was told.
    [[nodiscard]] bool StartWork(const std::function<bool(CVORec& record)>& fill);
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
    // One timer, whatever is selected and shown.
    void StartTimer(const QString& id);
    void PauseTimer(const QString& id);
    void StopTimer(const QString& id);

 private:
    using Fill = std::function<bool(CVORec& record)>;

    [[nodiscard]] bool MayAdd();
    void NewRecord(int flags, const Fill& fillFromDefaults);
    [[nodiscard]] bool FillFromDefault(const QString& name, CVORec& record) const;
    [[nodiscard]] bool FillFromTree(CVORec& record);
    [[nodiscard]] QuickEntryContext EntryContext(const Fill& fillFromDefaults);
    [[nodiscard]] bool Finish(const QuickOutcome& outcome);
    [[nodiscard]] bool EditInDialog(CVORec& record, CVORec* untouched = nullptr) const;
    [[nodiscard]] CRecordSave::End Save(DialogRecord& edited);
    TimerOutcome StopByTrueTime(QStringList& ids);
    void StopSelected();
    void TellIfUnsaved(const TimerOutcome& outcome);

    const FrameContext& m_context;
    CRecentWork& m_recent;
    COwnTimers m_timers;
    CRecordChanges m_changes;
    CRecordSave m_save;
};
