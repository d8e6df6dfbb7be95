#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/settings/CSettingsTree.h"

/// The application's profile: integers and binary values by section and entry, in an area of the settings
/// tree of its own.
class CProfile {
 public:
    /// root: name of the profile's key below the tree's root.
    CProfile(CSettingsTree& tree, const QString& root);

    /// The fallback when the value is missing or no integer.
    [[nodiscard]] std::int32_t GetInt(const QString& section, const QString& entry,
                                      std::int32_t fallback) const;
    bool WriteInt(const QString& section, const QString& entry, std::int32_t value);
    /// Nothing when the value is missing or isn't binary.
    [[nodiscard]] std::optional<QByteArray> GetBinary(const QString& section, const QString& entry) const;
    bool WriteBinary(const QString& section, const QString& entry, const QByteArray& value);
    /// Nothing when the value is missing or no text.
    [[nodiscard]] std::optional<QString> GetText(const QString& section, const QString& entry) const;
    bool WriteText(const QString& section, const QString& entry, const QString& value);
    /// Takes a value away; true also when there was none.
    [[nodiscard]] bool Remove(const QString& section, const QString& entry);
    /// All values of a section in one read.
    [[nodiscard]] std::vector<std::pair<QString, SettingsValue>> Section(const QString& section) const;
    /// Damage was met since the settings were opened: what they hold may be neither used nor written.
    [[nodiscard]] bool IsDamaged() const { return m_tree.File().IsDamaged(); }
    /// Several writes as one change.
    [[nodiscard]] bool Change(const std::function<bool()>& work) { return m_tree.Change(work); }

 private:
    [[nodiscard]] CSettingsKey Find(const QString& section) const;
    template <typename Value>
    [[nodiscard]] std::optional<Value> Get(const QString& section, const QString& entry) const;
    bool Write(const QString& section, const QString& entry, const SettingsValue& value);

    CSettingsTree& m_tree;
    QString m_root;
};
