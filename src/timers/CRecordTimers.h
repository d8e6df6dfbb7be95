#pragma once

#include "app/CTimerDesk.h"
#include "timers/ActiveTimerSet.h"

#include <QString>

class CVelmarchDoc;
class CCfgStore;

/// Turns timers into changes of records, and keeps the timer set in the settings: it is saved whenever a
/// timer starts, pauses, stops or is dropped, so a killed process loses none.
class CRecordTimers final : public CTimerDesk {
 public:
    CRecordTimers(ActiveTimerSet& timers, CVelmarchDoc& document, CCfgStore& settings);

    bool StartRecordTimer(const QString& recordId);
    /// Writes the count of the last fold, seconds dropped, rounded, into the record's duration, and removes
    /// the timer.
    bool StopRecordTimer(const QString& recordId);
    bool PauseRecordTimer(const QString& recordId);
    bool StopAllTimers();
    bool PauseAllTimers();

    /// Folds all running timers once and stores the fold: before anything pauses, stops or shows timers.
    void FoldAndStore();
    /// At the end of the window: the timerOnExit action, then the timers into the profile.
    void SaveTimers();
    bool RestoreTimers();
    /// Writes the set as it is; part of every change above. False when it could not be written.
    bool StoreTimers();

    [[nodiscard]] ActiveTimerSet& Set() { return m_timers; }

    [[nodiscard]] TimerState StateOf(const QString& recordId) const override {
        return m_timers.StateOf(recordId);
    }
    bool RunNewTimerAction() override;
    bool StartFromZero(const QString& recordId) override;
    void Drop(const QString& recordId) override;

 private:
    ActiveTimerSet& m_timers;
    CVelmarchDoc& m_document;
    CCfgStore& m_settings;
};
