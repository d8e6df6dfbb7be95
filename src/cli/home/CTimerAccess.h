#pragma once

#include "changes/CTimersOfRecords.h"
#include "cli/output/TimerShown.h"
#include "timers/ActiveTimerSet.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerRequest.h"

#include <QString>
#include <functional>
#include <optional>
#include <utility>

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
    /// Whether they could be read, or the window has told them. Where not, any record may have one.
    [[nodiscard]] bool AreKnown() const { return m_areKnown; }
    /// Some were lost with damaged settings, and none was started since.
    [[nodiscard]] bool AreLost() const { return m_timers.AreLost(); }
    /// Who hears of timers that are taken away without a record.
    void OnOrphan(CRecordTimers::Tell tell) { m_timers.OnOrphan(std::move(tell)); }
    /// Reads them and brings the counts up to now: folds and stores the fold, or lets the window do it.
    void Look();

    [[nodiscard]] CTimerService& Timers() { return m_timers; }
    [[nodiscard]] std::optional<TimerShown> Shown(const QString& recordId) const;

    /// Carries out a timer command where the timers are owned, as RunTimerRequest does; the window owns them
    /// when it can't be told.
    [[nodiscard]] InstanceReply Run(const TimerRequest& request);

    /// That timers could not be stored, and why.
    [[nodiscard]] QString WhyNotStored() const;

    enum class Changed { Done, Failed, WindowOwns };
    /// What work on timers writes. A stop writes into its record, and what it notes of that in the settings
    /// has to be durable before.
    enum class Writes { Timers, RecordsToo };
    /// Runs work on the timers as stored; false: it failed. What it writes into the settings is one change,
    /// which a failure undoes, unless it writes records too. Nothing is done while a window runs.
    [[nodiscard]] Changed ChangeHere(const std::function<bool()>& work, Writes writes);
    /// What a new timer writes: it may stop the others.
    [[nodiscard]] Writes OfNewTimer() const;
    [[nodiscard]] QStringList Timed(const QStringList& ids) override;
    [[nodiscard]] QHash<QString, QByteArray> AllImages();
    [[nodiscard]] QHash<QString, QByteArray> Images(const QStringList& ids) override;
    [[nodiscard]] bool Drop(const QStringList& ids) override;
    [[nodiscard]] bool PutBack(const QString& id, const QByteArray& image) override;
    /// Drops the timers of records that aren't in the store any more. How many; nothing when it could not be
    /// saved.
    [[nodiscard]] std::optional<int> DropGone();
    [[nodiscard]] const ActiveTimer* Find(const QString& recordId) { return m_set.Find(recordId); }

 private:
    void TakeOver(const InstanceReply& reply);
    [[nodiscard]] InstanceReply RunHere(const TimerRequest& request, Changed& changed);
    [[nodiscard]] Writes WhatIsWritten(TimerAction action) const;
    [[nodiscard]] bool RunAndSave(const std::function<bool()>& work);

    CVelmarchDoc& m_document;
    CCfgStore& m_settings;
    CWindowLink& m_window;
    ActiveTimerSet m_set;
    CRecordTimers m_timers;
    bool m_areKnown = false;
};
