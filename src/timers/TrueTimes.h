#pragma once

#include <QByteArray>

class ActiveTimerSet;

// The true counts of timers as they are stored, beside the timers' own value and apart from it. Each stands
// with the bytes of the timer to which it belongs: where these have changed since, by a program that knows no
// true time, it counts no more. See docs/timers.md.

[[nodiscard]] QByteArray TrueTimesOf(const ActiveTimerSet& timers);
/// Gives the timers of a set their true counts. Those that have none, or whose count can't be read, stay
/// without.
void TakeTrueTimes(const QByteArray& stored, ActiveTimerSet& timers);
