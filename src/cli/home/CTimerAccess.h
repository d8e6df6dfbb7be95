#pragma once

#include "changes/CTimersOfRecords.h"
#include "cli/output/TimerShown.h"
#include "timers/ActiveTimerSet.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerRequest.h"

#include <QString>
#include <functional>
#include <optional>

class CCfgStore;
class CVelmarchDoc;
class CWindowLink;

/// The timers of the home for a console command. A running window owns them: it is asked then. Without one
/// they are read from the settings, changed and written back as one change, so that two programs at once lose
/// nothing.
class CTimerAccess final : public CTimersOfRecords {
 public:
    CTimerAccess(const CClock& clock, CVelmarchDoc& document, CCfgStore& settings, CWindowLink& window);

    /// Reads the timers as they are stored.
    void Read();
    /// Reads them and brings the counts up to now: folds and stores the fold, or lets the window do it.
    void Look();

    [[nodiscard]] CTimerService& Timers() { return m_timers; }
    [[nodiscard]] std::optional<TimerShown> Shown(const QString& recordId) const;

    /// Carries out a timer command where the timers are owned, as RunTimerRequest does; the window owns them
    /// when it can't be told.
    [[nodiscard]] InstanceReply Run(const TimerRequest& request);

    enum class Changed { Done, Failed, WindowOwns };
    /// Runs work on the timers as stored, with all that it writes into the settings as one change; work
    /// returns false to undo it. Nothing is done while a window runs.
    [[nodiscard]] Changed ChangeHere(const std::function<bool()>& work);
    [[nodiscard]] QStringList Timed(const QStringList& ids) override;
    [[nodiscard]] bool Drop(const QStringList& ids) override;
    [[nodiscard]] const ActiveTimer* Find(const QString& recordId) { return m_set.Find(recordId); }

 private:
    void TakeOver(const InstanceReply& reply);
    [[nodiscard]] InstanceReply RunHere(const TimerRequest& request, Changed& changed);

    CVelmarchDoc& m_document;
    CCfgStore& m_settings;
    CWindowLink& m_window;
    ActiveTimerSet m_set;
    CRecordTimers m_timers;
};
