#pragma once

#include "timers/TrueTime.h"

#include <QStringList>

class ActiveTimerSet;
class CPrompt;

/// Which count a timer is to be stopped with: the user is asked where they differ. Nothing: the user would
/// rather not stop it. timer: null without one.
[[nodiscard]] std::optional<CountBy> AskCountBy(const ActiveTimer* timer, CPrompt& prompt);

/// The timers of records that are to be stopped, by what the user says of each. A timer that the user would
/// rather not stop is in neither.
struct StopChoice {
    QStringList byClock;  ///< records without a timer as well
    QStringList byTrueTime;
};
[[nodiscard]] StopChoice AskCountsBy(const QStringList& recordIds, const ActiveTimerSet& timers,
                                     CPrompt& prompt);
