#pragma once

#include "platform/instance/InstanceMessage.h"

#include <cstdint>
#include <optional>

class CCfgStore;

/// A change of a setting as it travels between console and window: {"name": "...", "value": N}, or {"reset":
/// true} with or without a name.
struct SettingRequest {
    std::optional<QString> name = {};        ///< nothing with a reset: of all
    std::optional<std::int64_t> value = {};  ///< nothing where no whole number was sent
    bool isReset = false;

    [[nodiscard]] QJsonObject ToJson() const;
    /// Nothing for a name that is no text.
    [[nodiscard]] static std::optional<SettingRequest> FromJson(const QJsonObject& json);
};

/// Carries it out, the same in console and window. Saved at once. A value out of range is refused with the
/// allowed ones, an unknown name as not found.
[[nodiscard]] InstanceReply RunSettingRequest(const SettingRequest& request, CCfgStore& settings);
