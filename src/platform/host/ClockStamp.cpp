#include "platform/host/ClockStamp.h"

std::optional<std::int64_t> TrueTimeBetween(const ClockStamp& from, const ClockStamp& to) {
    if (!from.IsKnown() || !to.IsKnown()) return std::nullopt;
    const std::int64_t passed = from.boot == to.boot ? to.sinceBoot - from.sinceBoot : to.utc - from.utc;
    return passed < 0 ? std::nullopt : std::optional(passed);
}
