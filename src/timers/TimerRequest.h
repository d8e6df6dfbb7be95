#pragma once

#include "platform/instance/InstanceMessage.h"

#include <cstdint>
#include <optional>
#include <vector>

enum class TimerAction { Start, Pause, Stop, StopAll, PauseAll, Status, Drop, PutBack };

/// A timer command as it travels between console and window: {"action": "start"|"pause"|"stop"|"stop-all"|
/// "pause-all"|"status"|"drop"|"put-back", "id": "..."}; "start" with "fromZero": true counts from zero, not
/// from the record's duration; "stop" with "trueTime": true writes the time that has truly passed; "drop"
/// takes the timer out and writes nothing into the record, which may be gone; "put-back" with "timer": its
/// image in base 64 puts one back that went with a change which was undone.
struct TimerRequest {
    TimerAction action;
    QString id = {};  ///< of the record; none for the actions on all
    bool isFromZero = false;
    bool isTrueTime = false;
    QByteArray image = {};  ///< of the timer that is put back

    [[nodiscard]] InstanceMessage ToMessage() const;
    /// Nothing for an unknown action.
    [[nodiscard]] static std::optional<TimerRequest> FromJson(const QJsonObject& json);
    /// The action that was asked for, whatever it is.
    [[nodiscard]] static QString ActionIn(const QJsonObject& json);
};

/// A timer as a reply shows it: {"id": "...", "state": "running"|"paused", "seconds": N, "trueSeconds": N or
/// null}.
struct TimerReading {
    QString recordId;
    bool isRunning;
    int seconds;
    std::optional<std::int64_t> trueSeconds = {};  ///< nothing when it isn't known
};
/// "running" or "paused".
[[nodiscard]] QString StateName(const TimerReading& timer);

/// The reply to every timer command: {"timers": [...]}, all that there are afterwards, and beside them those
/// that were stopped, if any, as they stood before: "stopped": [...].
[[nodiscard]] InstanceReply ReplyWith(const std::vector<TimerReading>& timers,
                                      const std::vector<TimerReading>& stopped = {});
[[nodiscard]] std::vector<TimerReading> TimersIn(const InstanceReply& reply);
[[nodiscard]] std::vector<TimerReading> StoppedIn(const InstanceReply& reply);
