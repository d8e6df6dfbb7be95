#include "platform/instance/InstanceMessage.h"

#include <utility>

namespace {

constexpr QLatin1String kOk("ok");
constexpr QLatin1String kReason("exit");
constexpr QLatin1String kWords("error");

ReplyReason ReasonOf(int number) {
    const auto reason = static_cast<ReplyReason>(number);
    switch (reason) {
        case ReplyReason::NotUnderstood:
        case ReplyReason::WindowOwns:
        case ReplyReason::NotFound:
        case ReplyReason::WindowEnds:
            return reason;
        case ReplyReason::Done:  // "ok" said that it is none
        case ReplyReason::Failed:
            break;
    }
    return ReplyReason::Failed;
}

}  // namespace

InstanceReply InstanceReply::Done(QJsonObject payload) {
    return {ReplyReason::Done, {}, std::move(payload)};
}

InstanceReply InstanceReply::Refused(ReplyReason reason, const QString& words) {
    return {reason, words, {}};
}

QJsonObject InstanceReply::ToJson() const {
    QJsonObject json = payload;
    json.insert(kOk, reason == ReplyReason::Done);
    if (reason == ReplyReason::Done) return json;
    json.insert(kReason, static_cast<int>(reason));
    json.insert(kWords, words);
    return json;
}

InstanceReply InstanceReply::FromJson(const QJsonObject& json) {
    if (!json.value(kOk).toBool())
        return Refused(ReasonOf(json.value(kReason).toInt()), json.value(kWords).toString());
    QJsonObject payload = json;
    payload.remove(kOk);
    return Done(payload);
}
