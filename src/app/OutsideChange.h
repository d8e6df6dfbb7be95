#pragma once

#include "platform/instance/InstanceMessage.h"

#include <QStringList>
#include <optional>

enum class RecordKind : int;

/// What another program has changed in the store, as it tells a running window: {"kind": "time", "ids":
/// ["..."], "lists": true}. Nothing in it: anything may have changed.
struct OutsideChange {
    std::optional<RecordKind> kind;
    QStringList ids;        ///< of that kind; none: all of them may have changed
    bool hasLists = false;  ///< pick lists changed too

    /// Whether the identities say all that there is to read again.
    [[nodiscard]] bool NamesRecords() const { return kind && !ids.isEmpty(); }
    [[nodiscard]] InstanceMessage ToMessage() const;
    [[nodiscard]] static OutsideChange FromJson(const QJsonObject& json);
};
