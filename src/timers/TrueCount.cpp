#include "timers/TrueCount.h"

namespace {

/// As many hours as a record can hold; beyond them a clock was wrong, not a timer forgotten.
constexpr std::int64_t kMost = std::int64_t{32767} * 3'600'000;

}  // namespace

void TrueCount::Start(const ClockStamp& now, std::int64_t seconds) {
    isKnown = now.IsKnown();
    milliseconds = seconds * 1000;
    last = now;
}

void TrueCount::Resume(const ClockStamp& now) {
    isKnown = isKnown && now.IsKnown();
    last = now;
}

void TrueCount::Fold(const ClockStamp& now) {
    if (!isKnown) return;
    const std::optional<std::int64_t> passed = TrueTimeBetween(last, now);
    if (!passed) return;
    isKnown = milliseconds >= 0 && milliseconds <= kMost - *passed;
    milliseconds += isKnown ? *passed : 0;
    last = now;
}

std::optional<std::int64_t> TrueCount::Seconds() const {
    return isKnown ? std::optional(milliseconds / 1000) : std::nullopt;
}

bool TrueCount::GetElapsed(int& hours, int& minutes) const {
    const auto seconds = Seconds();
    if (!seconds) return false;
    hours = static_cast<int>(*seconds / 3600);
    minutes = static_cast<int>(*seconds / 60 % 60);
    return true;
}
