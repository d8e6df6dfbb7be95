#include "timers/TimerRequest.h"

#include <QJsonArray>

namespace {

constexpr QLatin1String kAction("action");
constexpr QLatin1String kId("id");
constexpr QLatin1String kFromZero("fromZero");
constexpr QLatin1String kTrueTime("trueTime");
constexpr QLatin1String kTimer("timer");
constexpr QLatin1String kTimers("timers");
constexpr QLatin1String kStopped("stopped");
constexpr QLatin1String kState("state");
constexpr QLatin1String kSeconds("seconds");
constexpr QLatin1String kTrueSeconds("trueSeconds");
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
    {TimerAction::Drop, QLatin1String("drop")},          {TimerAction::PutBack, QLatin1String("put-back")},
};

QJsonArray ToJson(const std::vector<TimerReading>& timers) {
    QJsonArray all;
    for (const TimerReading& timer : timers) {
        QJsonObject json{{kId, timer.recordId}, {kState, StateName(timer)}, {kSeconds, timer.seconds}};
        json.insert(kTrueSeconds, timer.trueSeconds ? QJsonValue(qint64{*timer.trueSeconds}) : QJsonValue());
        all.append(json);
    }
    return all;
}

std::vector<TimerReading> FromJson(const QJsonValue& shown) {
    std::vector<TimerReading> timers;
    for (const auto& value : shown.toArray()) {
        const QJsonObject json = value.toObject();
        const QJsonValue trueSeconds = json.value(kTrueSeconds);
        TimerReading timer{.recordId = json.value(kId).toString(),
                           .isRunning = json.value(kState).toString() == kRunning,
                           .seconds = json.value(kSeconds).toInt()};
        if (trueSeconds.isDouble()) timer.trueSeconds = trueSeconds.toInteger();
        timers.push_back(timer);
    }
    return timers;
}

}  // namespace

InstanceMessage TimerRequest::ToMessage() const {
    QJsonObject json;
    for (const ActionRow& row : kActions)
        if (row.action == action) json.insert(kAction, row.name);
    if (!id.isEmpty()) json.insert(kId, id);
    if (isFromZero) json.insert(kFromZero, true);
    if (isTrueTime) json.insert(kTrueTime, true);
    if (!image.isEmpty()) json.insert(kTimer, QString::fromLatin1(image.toBase64()));
    return {InstanceCommand::Timer, json};
}

std::optional<TimerRequest> TimerRequest::FromJson(const QJsonObject& json) {
    for (const ActionRow& row : kActions)
        if (row.name == ActionIn(json))
            return TimerRequest{.action = row.action,
                                .id = json.value(kId).toString(),
                                .isFromZero = json.value(kFromZero).toBool(),
                                .isTrueTime = json.value(kTrueTime).toBool(),
                                .image = QByteArray::fromBase64(json.value(kTimer).toString().toLatin1())};
    return std::nullopt;
}

QString TimerRequest::ActionIn(const QJsonObject& json) {
    return json.value(kAction).toString();
}

QString StateName(const TimerReading& timer) {
    return timer.isRunning ? kRunning : kPaused;
}

InstanceReply ReplyWith(const std::vector<TimerReading>& timers, const std::vector<TimerReading>& stopped) {
    QJsonObject payload{{kTimers, ToJson(timers)}};
    if (!stopped.empty()) payload.insert(kStopped, ToJson(stopped));
    return InstanceReply::Done(payload);
}

std::vector<TimerReading> TimersIn(const InstanceReply& reply) {
    return FromJson(reply.payload.value(kTimers));
}

std::vector<TimerReading> StoppedIn(const InstanceReply& reply) {
    return FromJson(reply.payload.value(kStopped));
}
