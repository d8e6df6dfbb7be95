#pragma once

#include <QJsonObject>

class CCfgStore;
class CClock;

/// Carries out a change of the stored defaults as it travels between console and window:
/// {"defaults": "time"|"expense", "action": "write", "name": N, "record": bytes in base 64}, {"action":
/// "delete", "name": N} or {"action": "rename", "name": N, "to": N}. Answer as RunSettingCommand gives it;
/// "exit" 4 for a name that isn't stored.
[[nodiscard]] QJsonObject RunDefaultsCommand(const QJsonObject& command, CCfgStore& settings,
                                             const CClock& clock);

/// Any change of what the settings hold: a setting, columns (ColumnCommand.h), or stored defaults.
[[nodiscard]] QJsonObject RunSettingsRequest(const QJsonObject& command, CCfgStore& settings,
                                             const CClock& clock);
