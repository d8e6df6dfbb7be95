#pragma once

#include <cstdint>
#include <optional>

#include "platform/host/ClockStamp.h"

/// What a timer has truly counted, beside its count by clock readings, from which it differs when the clock
/// was set, the local time changed, or a day passed that nobody saw.
class TrueCount {
 public:
    /// Starts at a count in seconds. Unknown with an unknown reading.
    void Start(const ClockStamp& now, std::int64_t seconds);
    /// Goes on from here after a pause.
    void Resume(const ClockStamp& now);
    /// Adds the time since the last reading. A reading that tells nothing adds nothing: the next one that
    /// does adds all of it.
    void Fold(const ClockStamp& now);

    /// In whole seconds, up to the last fold; nothing when it isn't known.
    [[nodiscard]] std::optional<std::int64_t> Seconds() const;
    /// The same in hours and minutes, seconds dropped; false, and they stay, when it isn't known.
    [[nodiscard]] bool GetElapsed(int& hours, int& minutes) const;

    bool operator==(const TrueCount&) const = default;

    bool isKnown = false;
    std::int64_t milliseconds = 0;
    ClockStamp last;  ///< up to which the count is good
};
