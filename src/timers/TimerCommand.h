#pragma once

#include "timers/TimerRequest.h"

class CRecordTimers;
class CVelmarchDoc;

/// Carries out one timer command, the same in console and window; the reply shows all timers as they are
/// afterwards, counted on to now. All running timers are folded, and the fold stored, before anything is
/// paused, stopped or asked for.
[[nodiscard]] InstanceReply RunTimerRequest(const TimerRequest& request, CRecordTimers& timers,
                                            CVelmarchDoc& document);
/// Carries out one that has come as JSON.
[[nodiscard]] InstanceReply RunTimerMessage(const QJsonObject& arguments, CRecordTimers& timers,
                                            CVelmarchDoc& document);
