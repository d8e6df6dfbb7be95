#pragma once

#include "platform/instance/InstanceMessage.h"

/// What a program asks of a running window of the same home that replaces all of its records: first whether
/// the window could read everything anew, {"ask": true}, and when they are replaced, that it does.
struct RefreshRequest {
    bool isQuestion = false;

    [[nodiscard]] InstanceMessage ToMessage() const;
    [[nodiscard]] static RefreshRequest FromJson(const QJsonObject& json);
};
