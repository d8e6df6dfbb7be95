#pragma once

#include <QStringList>

class CRecordTimers;
class CVelmarchDoc;

/// What a timer command does with the selected records.
enum class TimerAction : int { Stop = 0, Start = 1, Pause = 2 };

/// The timer commands of the list: the running timers are folded and stored first, so that one out of sight
/// loses nothing, then record by record in order of selection; each success is announced by itself, a failure
/// is passed over.
void ApplyToSelection(const QStringList& ids, TimerAction action, CRecordTimers& timers,
                      CVelmarchDoc& document);

/// All timers at once. The views are told of each that changed.
void StopAllTimers(CRecordTimers& timers, CVelmarchDoc& document);
void PauseAllTimers(CRecordTimers& timers, CVelmarchDoc& document);
