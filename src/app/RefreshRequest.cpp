#include "app/RefreshRequest.h"

namespace {
constexpr QLatin1String kAsk("ask");
}

InstanceMessage RefreshRequest::ToMessage() const {
    QJsonObject json;
    if (isQuestion) json.insert(kAsk, true);
    return {InstanceCommand::Refresh, json};
}

RefreshRequest RefreshRequest::FromJson(const QJsonObject& json) {
    return {json.value(kAsk).toBool()};
}
