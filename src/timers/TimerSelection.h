#pragma once

#include <QStringList>

class CRecordTimers;

/// What can be done to the timers of selected records.
enum class TimerAction : int { Stop = 0, Start = 1, Pause = 2 };

/// Does it to each record in the order given, in time mode only. A record where it fails is skipped. The
/// views hear of each success by its hint (from CRecordTimers). Running timers are folded before a stop or a
/// pause.
void ApplyToSelection(const QStringList& recordIds, TimerAction action, CRecordTimers& timers);
