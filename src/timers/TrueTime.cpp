#include "timers/TrueTime.h"

namespace {

/// Records count minutes.
constexpr std::int64_t kLeast = 60;

}  // namespace

std::optional<TimeDifference> DifferenceOf(std::int64_t counted, std::optional<std::int64_t> passed) {
    if (!passed) return std::nullopt;
    const std::int64_t difference = counted < *passed ? *passed - counted : counted - *passed;
    return difference < kLeast ? std::nullopt : std::optional(TimeDifference{counted, *passed});
}
