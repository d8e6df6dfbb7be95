#pragma once

#include "config/Settings.h"

#include <QString>
#include <span>
#include <variant>

enum class SettingType { Flag, Int, Colour };

/// Where a setting lies in the block.
using SettingMember = std::variant<bool Settings::*, std::int32_t Settings::*, std::uint32_t Settings::*>;

/// One setting. The index is its identity in the stored form: a new one is only ever appended.
struct SettingRow {
    int index;
    const char* name;
    SettingType type;
    SettingMember member;
    std::int64_t preset;  ///< the default
    std::int64_t least;   ///< allowed values, checked when a user sets one
    std::int64_t greatest;
    std::span<const std::int64_t> only;  ///< when not empty: exactly these
};

/// The 75 settings in index order.
[[nodiscard]] std::span<const SettingRow> SettingsTable();
/// This program's own settings beside them, numbered on from there. They are stored by their names.
[[nodiscard]] std::span<const SettingRow> OwnSettingsTable();
/// In both tables.
[[nodiscard]] const SettingRow* FindSetting(const QString& name);
[[nodiscard]] std::int64_t SettingValue(const Settings& settings, const SettingRow& row);
/// Stores a value in the block as it is.
void PutSetting(Settings& settings, const SettingRow& row, std::int64_t value);
/// The allowed values in words, for a refusal ("0, 16 or 32"; "0 to 6").
[[nodiscard]] QString AllowedValues(const SettingRow& row);
[[nodiscard]] bool IsAllowed(const SettingRow& row, std::int64_t value);
