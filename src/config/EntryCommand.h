#pragma once

#include "config/EntryContent.h"
#include "platform/instance/InstanceMessage.h"

#include <QJsonArray>
#include <optional>

class CCfgStore;

/// A change of an entry below the base key as it travels between console and window: {"key": K, "entry": E,
/// "former": F, "values": [{"name": N, "text": T}, {"name": N, "bytes": in base 64}]}; a whole
/// number, which none of ours is, would be {"name": N, "number": I}. The former entry goes
/// and the values are written, where one is named: both or neither.
struct EntryRequest {
    QString key;
    QString entry = {};  ///< to be written; empty: none
    EntryContent values = {};
    QString former = {};  ///< to be deleted; empty: none

    [[nodiscard]] QJsonObject ToJson() const;
    /// Whether a change of the settings is one of an entry.
    [[nodiscard]] static bool IsIn(const QJsonObject& json);
    /// Nothing for one that can't be read.
    [[nodiscard]] static std::optional<EntryRequest> FromJson(const QJsonObject& json);
};

/// The values of an entry as they stand there.
[[nodiscard]] QJsonArray ToJson(const EntryContent& content);
/// Nothing for one that can't be read.
[[nodiscard]] std::optional<EntryContent> ContentOf(const QJsonArray& values);

/// Carries it out, the same in console and window. A former entry that isn't there is refused as not found;
/// values that are empty or too large, before anything is changed.
[[nodiscard]] InstanceReply RunEntryRequest(const EntryRequest& request, CCfgStore& settings);
/// The same for a window's own dialog: the user is shown which value is empty or too large, and nothing else.
[[nodiscard]] bool ChangeEntry(const EntryRequest& request, CCfgStore& settings);
