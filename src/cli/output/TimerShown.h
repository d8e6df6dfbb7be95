#pragma once

#include <QtGlobal>
#include <cstdint>
#include <optional>

/// A timer as it is shown.
struct TimerShown {
    bool isRunning = false;
    qint64 seconds = 0;
    std::optional<std::int64_t> trueSeconds = {};  ///< nothing when it isn't known
};
