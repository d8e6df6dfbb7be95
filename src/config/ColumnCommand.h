#pragma once

#include <QJsonObject>

class CCfgStore;

/// Carries out a change of one half of a set of columns as it travels between console and window:
/// {"columns": "list"|"tree", "half": "time"|"expense"} with any of "shown": [numbers], exactly the visible
/// columns in their order; "widths": {"4": 60}; "breaks": [5, 7]. Or with "reset": true, which puts the half
/// back to the defaults; captions stay. Saved at once; on failure the columns stay as they were.
/// Answer as RunSettingCommand gives it.
[[nodiscard]] QJsonObject RunColumnCommand(const QJsonObject& command, CCfgStore& settings);

inline constexpr int kWidestColumn = 10000;  ///< pixels
