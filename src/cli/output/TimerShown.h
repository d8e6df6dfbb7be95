#pragma once

#include <QtGlobal>

/// A timer as it is shown.
struct TimerShown {
    bool isRunning = false;
    qint64 seconds = 0;
};
