#pragma once

#include "changes/CRecordChanges.h"
#include "changes/CRecordSave.h"
#include "changes/CTimersOfRecords.h"

#include <QStringList>
#include <functional>

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
    /// The stored defaults of the mode by name, without the empty record.
    [[nodiscard]] QStringList DefaultNames() const;
    void NewFromDefault(const QString& name);
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
    using Fill = std::function<bool(CVORec& record)>;

    [[nodiscard]] bool MayAdd();
    void NewRecord(int flags, const Fill& fillFromDefaults);
    [[nodiscard]] bool FillFromDefault(const QString& name, CVORec& record) const;
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
