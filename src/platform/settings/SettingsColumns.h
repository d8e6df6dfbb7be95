#pragma once

#include "platform/settings/SettingsValue.h"

#include <QString>
#include <optional>

struct sqlite3_stmt;

/// How names and values of the settings tree go into statements and come out of rows. Texts are UTF-8 of
/// counted length.
void BindText(sqlite3_stmt* statement, int index, const QString& text);
[[nodiscard]] QString ColumnText(sqlite3_stmt* statement, int index);

/// A value takes two parameters or columns side by side: its type ("integer", "text", "binary") and itself.
void BindValue(sqlite3_stmt* statement, int index, const SettingsValue& value);
/// Nothing where type and value don't go together.
[[nodiscard]] std::optional<SettingsValue> ColumnValue(sqlite3_stmt* statement, int index);
