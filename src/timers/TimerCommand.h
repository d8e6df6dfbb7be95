#pragma once

#include <QJsonObject>

class CRecordTimers;
class CVelmarchDoc;

/// Carries out one timer command as it travels between console and window, the same in both:
/// {"action": "start"|"pause"|"stop"|"stop-all"|"pause-all"|"status"|"drop", "id": "..."}; "start" with
/// "fromZero": true counts from zero, not from the record's duration; "drop" takes the timer out and writes
/// nothing into the record, which may be gone.
/// Answer {"ok": true, "timers": [{"id", "state", "seconds"}]}, all timers as they are afterwards, counted on
/// to now, or {"ok": false, "exit": 1|4, "error": "words"}. All running timers are folded, and the fold
/// stored, before anything is paused, stopped or asked for.
[[nodiscard]] QJsonObject RunTimerCommand(const QJsonObject& command, CRecordTimers& timers,
                                          CVelmarchDoc& document);
