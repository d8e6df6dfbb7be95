#pragma once

#include <QJsonObject>

class CCfgStore;

/// Carries out a change of a setting as it travels between console and window, the same in both:
/// {"name": "...", "value": N}, or {"reset": true} with or without a name. Saved at once.
/// Answer {"ok": true} or {"ok": false, "exit": 1|2|4, "error": "words"}; a value out of range names the
/// allowed ones.
[[nodiscard]] QJsonObject RunSettingCommand(const QJsonObject& command, CCfgStore& settings);
