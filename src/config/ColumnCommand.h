#pragma once

#include "platform/instance/InstanceMessage.h"

#include <map>
#include <optional>
#include <vector>

class CCfgStore;
enum class RecordKind : int;

/// A change of one half of a set of columns as it travels between console and window: {"columns":
/// "list"|"tree", "half": "time"|"expense"} with any of "shown": [numbers], exactly the visible columns in
/// their order; "widths": {"4": 60}; "breaks": [5, 7]. Or with "reset": true, which puts the half back to the
/// defaults; captions stay.
struct ColumnRequest {
    bool isTree = false;  ///< the levels of the data tree, not the columns of the list
    RecordKind kind;      ///< whose half
    bool isReset = false;
    std::optional<std::vector<int>> shown = {};
    std::map<int, int> widths = {};  ///< pixels by column
    std::optional<std::vector<int>> breaks = {};

    [[nodiscard]] QJsonObject ToJson() const;
    /// Whether a change of the settings is one of columns.
    [[nodiscard]] static bool IsIn(const QJsonObject& json);
    /// Nothing for one that can't be read.
    [[nodiscard]] static std::optional<ColumnRequest> FromJson(const QJsonObject& json);
};

/// Carries it out, the same in console and window. Saved at once; on failure the columns stay as they were.
[[nodiscard]] InstanceReply RunColumnRequest(const ColumnRequest& request, CCfgStore& settings);

inline constexpr int kWidestColumn = 10000;  ///< pixels
