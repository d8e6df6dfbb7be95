#pragma once

/// While it lives, sleeping takes no time in its thread: the monotonic clock goes on by what was to be slept.
/// So a wait of 30 seconds for a lock that never comes is over at once.
class QuickWaits {
 public:
    QuickWaits();
    ~QuickWaits();
    QuickWaits(const QuickWaits&) = delete;
    QuickWaits& operator=(const QuickWaits&) = delete;

    /// All that was slept since, in seconds.
    [[nodiscard]] static double Slept();
};
