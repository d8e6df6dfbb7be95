#pragma once

#include "viewmodel/work/Work.h"

#include <QString>
#include <vector>

class ActiveTimerSet;
class CVelmarchDoc;

/// A timer and what is worked on while it counts.
struct TimedWork {
    QString id;  ///< of the record
    Work work;
    bool isRunning = false;
    int seconds = 0;
    QString since;  ///< the record's start, as a view shows it; empty without one

    bool operator==(const TimedWork&) const = default;
    /// Never empty: something stands for a record in which nothing was entered.
    [[nodiscard]] QString Words() const;
    [[nodiscard]] QString Count() const;
    /// Without seconds: "0:42".
    [[nodiscard]] QString Hours() const;
    /// "Running since 9:00 AM", "Paused".
    [[nodiscard]] QString State() const;
};

/// The timers as the work bar shows them: the newest that runs comes first, or the newest paused one when
/// none runs, then the others, the newest first. While expenses are shown the records of timers aren't in
/// memory: those known already aren't read once more, so that a change of an expense asks the disk for
/// nothing else, and can't fail for it.
[[nodiscard]] std::vector<TimedWork> TimedWorks(const ActiveTimerSet& timers, CVelmarchDoc& document,
                                                const std::vector<TimedWork>& known = {});
/// Takes the counts as they stand now: the records and the states are those of the works.
void TakeCounts(std::vector<TimedWork>& works, const ActiveTimerSet& timers);

/// The title of the window: "0:42 Client A · Velmarch" while a timer runs, else the program's name alone.
[[nodiscard]] QString WindowTitle(const std::vector<TimedWork>& works);
