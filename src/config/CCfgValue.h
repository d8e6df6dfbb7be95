#pragma once

#include "platform/settings/CSettingsTree.h"

#include <QHash>
#include <QString>
#include <cstdint>
#include <variant>

class CProfile;

/// The stored values of a profile section, read at once.
using ProfileSection = QHash<QString, SettingsValue>;

/// Where a setting lies, and what it can hold.
using SettingAddress = std::variant<bool*, std::int32_t*, std::uint32_t*>;
using SettingContent = std::variant<bool, std::int32_t, std::uint32_t>;

/// One stored setting: knows its place in memory, its default, and what the store is known to hold. Which
/// setting it is, only its place in the store's list says.
class CCfgValue {
 public:
    CCfgValue() = default;
    virtual ~CCfgValue() = default;
    CCfgValue(const CCfgValue&) = delete;
    CCfgValue& operator=(const CCfgValue&) = delete;

    /// Writes the setting to the profile.
    virtual bool Save(CProfile& profile, const QString& section, const QString& entry) const = 0;
    /// Takes the setting from what the section holds; the default when it holds nothing usable.
    virtual void Load(const ProfileSection& stored, const QString& entry) = 0;
    /// The default into the setting.
    virtual void Reset() = 0;
    /// Ties the object to a setting of its own type and its default.
    virtual void Bind(const SettingAddress& setting, const SettingContent& preset) = 0;
    [[nodiscard]] virtual SettingAddress Location() const = 0;

    /// Whether the setting differs from what this process last read or wrote.
    [[nodiscard]] bool IsChanged() const { return m_known != Content(); }
    /// Whether the store is known to hold a value, usable or not.
    [[nodiscard]] bool IsStored() const { return m_isStored; }
    /// Takes note of what the store holds: the setting as it is now, or nothing.
    void NoteKnown(bool isStored);

 private:
    [[nodiscard]] SettingContent Content() const;

    SettingContent m_known;
    bool m_isStored = false;
};

/// What the three kinds of settings share.
template <class T>
class CCfgTyped : public CCfgValue {
 public:
    void Reset() override { *m_setting = m_preset; }
    void Bind(const SettingAddress& setting, const SettingContent& preset) override {
        m_setting = std::get<T*>(setting);
        m_preset = std::get<T>(preset);
    }
    [[nodiscard]] SettingAddress Location() const override { return m_setting; }

 protected:
    T* m_setting = nullptr;
    T m_preset{};
};
