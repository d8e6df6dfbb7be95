#include "timers/TimerRequest.h"

#include <QJsonArray>

namespace {

constexpr QLatin1String kAction("action");
constexpr QLatin1String kId("id");
constexpr QLatin1String kFromZero("fromZero");
constexpr QLatin1String kTimers("timers");
constexpr QLatin1String kState("state");
constexpr QLatin1String kSeconds("seconds");
constexpr QLatin1String kRunning("running");
constexpr QLatin1String kPaused("paused");

struct ActionRow {
    TimerAction action;
    QLatin1String name;
};
constexpr ActionRow kActions[] = {
    {TimerAction::Start, QLatin1String("start")},        {TimerAction::Pause, QLatin1String("pause")},
    {TimerAction::Stop, QLatin1String("stop")},          {TimerAction::StopAll, QLatin1String("stop-all")},
    {TimerAction::PauseAll, QLatin1String("pause-all")}, {TimerAction::Status, QLatin1String("status")},
    {TimerAction::Drop, QLatin1String("drop")},
};

}  // namespace

InstanceMessage TimerRequest::ToMessage() const {
    QJsonObject json;
    for (const ActionRow& row : kActions)
        if (row.action == action) json.insert(kAction, row.name);
    if (!id.isEmpty()) json.insert(kId, id);
    if (isFromZero) json.insert(kFromZero, true);
    return {InstanceCommand::Timer, json};
}

std::optional<TimerRequest> TimerRequest::FromJson(const QJsonObject& json) {
    for (const ActionRow& row : kActions)
        if (row.name == ActionIn(json))
            return TimerRequest{row.action, json.value(kId).toString(), json.value(kFromZero).toBool()};
    return std::nullopt;
}

QString TimerRequest::ActionIn(const QJsonObject& json) {
    return json.value(kAction).toString();
}

QString StateName(const TimerReading& timer) {
    return timer.isRunning ? kRunning : kPaused;
}

InstanceReply ReplyWith(const std::vector<TimerReading>& timers) {
    QJsonArray all;
    for (const TimerReading& timer : timers)
        all.append(QJsonObject{{kId, timer.recordId}, {kState, StateName(timer)}, {kSeconds, timer.seconds}});
    return InstanceReply::Done({{kTimers, all}});
}

std::vector<TimerReading> TimersIn(const InstanceReply& reply) {
    std::vector<TimerReading> timers;
    for (const auto& shown : reply.payload.value(kTimers).toArray()) {
        const QJsonObject json = shown.toObject();
        timers.push_back({json.value(kId).toString(), json.value(kState).toString() == kRunning,
                          json.value(kSeconds).toInt()});
    }
    return timers;
}
