#pragma once

#include "timers/TimerOutcome.h"

#include <QStringList>

class CRecordTimers;

/// What can be done to the timers of selected records.
enum class TimerAction : int { Stop = 0, Start = 1, Pause = 2 };

/// Does it to each record in the order given, in time mode only. A record where it fails is skipped. The
/// views hear of each success by its hint (from CRecordTimers). Running timers are folded before a stop or a
/// pause. The outcome is the first failure that is more than a record without a fitting timer.
TimerOutcome ApplyToSelection(const QStringList& recordIds, TimerAction action, CRecordTimers& timers);
