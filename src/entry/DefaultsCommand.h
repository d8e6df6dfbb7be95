#pragma once

#include "platform/instance/InstanceMessage.h"

#include <QByteArray>
#include <optional>

class CCfgStore;
class CClock;
enum class RecordKind : int;

enum class DefaultsAction { Write, Delete, Rename };

/// A change of the stored defaults as it travels between console and window: {"defaults": "time"|"expense",
/// "action": "write", "name": N, "record": bytes in base 64}, {"action": "delete", "name": N} or {"action":
/// "rename", "name": N, "to": N}.
struct DefaultsRequest {
    RecordKind kind;
    DefaultsAction action;
    QString name;
    QByteArray record = {};  ///< what is written under the name
    QString to = {};         ///< the new name

    [[nodiscard]] QJsonObject ToJson() const;
    /// Whether a change of the settings is one of defaults.
    [[nodiscard]] static bool IsIn(const QJsonObject& json);
    /// Nothing for one that can't be read.
    [[nodiscard]] static std::optional<DefaultsRequest> FromJson(const QJsonObject& json);
};

/// Carries it out, the same in console and window. A name that isn't stored is refused as not found.
[[nodiscard]] InstanceReply RunDefaultsRequest(const DefaultsRequest& request, CCfgStore& settings,
                                               const CClock& clock);
