#pragma once

#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"

#include <memory>
#include <optional>

/// A scratch home with timers, wired as the programs wire them. The clock stands at 9:00 on 19 November 2026.
class TimerHome : public TestHome {
 public:
    TimerHome() { Wire(); }
    explicit TimerHome(const QString& folder) : TestHome(folder) { Wire(); }

    /// The times and the duration of the stored record, "09:00 AM-10:30 AM 1:30", "--:--" for what isn't set.
    [[nodiscard]] QString TimesOf(const QString& id) const {
        CTRecord record;
        if (!store->ReadRecord(record, id)) return QStringLiteral("no record");
        return TimeTextOfRecord(record, 3) + u'-' + TimeTextOfRecord(record, 4) + u' ' +
               record.spans.duration.clockText;
    }
    /// The count of a timer and its state, "01:30:00 running"; "none" without one.
    [[nodiscard]] QString CountOf(const QString& id) const {
        const ActiveTimer* timer = std::as_const(*set).Find(id);
        if (!timer) return QStringLiteral("none");
        const bool isRunning = timer->state == TimerState::Running;
        return QString::asprintf("%02d:%02d:%02d %s", timer->hours, timer->minutes, timer->seconds,
                                 isRunning ? "running" : "paused");
    }
    /// The timers as a program that starts now finds them: the same text for a record.
    [[nodiscard]] QString StoredCountOf(const QString& id) const {
        const TimerHome next(Path());
        next.timers->RestoreTimers();
        next.settings->KeepStoreUntouched();
        return next.CountOf(id);
    }
    /// The hints since the last call that concern timers: "3 4".
    [[nodiscard]] QString TimerHints() {
        QStringList hints;
        for (const auto& [hint, ids] : views.seen)
            if (hint == Hint::TimerStarted || hint == Hint::TimerPaused || hint == Hint::TimerStopped)
                hints.append(QString::number(static_cast<int>(hint)));
        views.seen.clear();
        return hints.join(u' ');
    }

    std::optional<ActiveTimerSet> set;
    std::unique_ptr<CRecordTimers> timers;

 private:
    void Wire() {
        set.emplace(clock);
        timers = std::make_unique<CRecordTimers>(*set, *document, *settings);
        document->SetTimers(timers.get());
    }
};
