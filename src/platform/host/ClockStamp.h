#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>

/// A reading that a change of the local time doesn't touch: neither the time zone nor the nights in which the
/// clock is changed. In milliseconds.
struct ClockStamp {
    std::int64_t utc = 0;        ///< since 1970, as the clock of the machine is set
    std::int64_t sinceBoot = 0;  ///< since the machine was started, the time that it slept included
    QByteArray boot = {};        ///< which start that was; empty: nothing is known

    [[nodiscard]] bool IsKnown() const { return !boot.isEmpty(); }
    bool operator==(const ClockStamp&) const = default;
};

/// The true time from one reading to a later one, in milliseconds. As long as the machine wasn't started anew
/// its own count decides: nobody can set it, while UTC jumps when the clock is set right. Over a new start
/// only UTC is left. 09:00 to 10:00 with the clock set from 09:30 to 12:00 in between: 30 minutes.
/// Nothing when a reading is unknown, or the later one seems to lie before the other: a clock that lost its
/// time over a new start tells nothing until it is set right.
[[nodiscard]] std::optional<std::int64_t> TrueTimeBetween(const ClockStamp& from, const ClockStamp& to);
