#include "platform/settings/CProfile.h"

CProfile::CProfile(CSettingsTree& tree, const QString& root) : m_tree(tree), m_root(root) {}

/// Reading makes no key.
CSettingsKey CProfile::Find(const QString& section) const {
    return m_tree.OpenKey(m_tree.OpenKey(m_tree.Root(), m_root), section);
}

template <typename Value>
std::optional<Value> CProfile::Get(const QString& section, const QString& entry) const {
    const CSettingsKey key = Find(section);
    if (!key.IsOpen()) return std::nullopt;
    const std::optional<SettingsValue> value = m_tree.ReadValue(key, entry);
    if (!value || !std::holds_alternative<Value>(*value)) return std::nullopt;
    return std::get<Value>(*value);
}

bool CProfile::Write(const QString& section, const QString& entry, const SettingsValue& value) {
    return m_tree.Change([&] {
        const CSettingsKey root = m_tree.CreateKey(m_tree.Root(), m_root);
        return m_tree.WriteValue(m_tree.CreateKey(root, section), entry, value);
    });
}

std::int32_t CProfile::GetInt(const QString& section, const QString& entry, std::int32_t fallback) const {
    return Get<std::int32_t>(section, entry).value_or(fallback);
}

bool CProfile::WriteInt(const QString& section, const QString& entry, std::int32_t value) {
    return Write(section, entry, value);
}

std::optional<QByteArray> CProfile::GetBinary(const QString& section, const QString& entry) const {
    return Get<QByteArray>(section, entry);
}

bool CProfile::WriteBinary(const QString& section, const QString& entry, const QByteArray& value) {
    return Write(section, entry, value);
}

std::optional<QString> CProfile::GetText(const QString& section, const QString& entry) const {
    return Get<QString>(section, entry);
}

bool CProfile::WriteText(const QString& section, const QString& entry, const QString& value) {
    return Write(section, entry, value);
}

bool CProfile::Remove(const QString& section, const QString& entry) {
    return m_tree.Change([&] {
        const CSettingsKey key = Find(section);
        return !key.IsOpen() || !m_tree.ReadValue(key, entry) || m_tree.DeleteValue(key, entry);
    });
}

std::vector<std::pair<QString, SettingsValue>> CProfile::Section(const QString& section) const {
    const CSettingsKey key = Find(section);
    if (!key.IsOpen()) return {};
    return m_tree.ReadValues(key).value_or(std::vector<std::pair<QString, SettingsValue>>());
}
