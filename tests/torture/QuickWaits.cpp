#include "torture/QuickWaits.h"

#include <dlfcn.h>
#include <cstdint>
#include <ctime>

// The program's own nanosleep and clock_gettime come before those of the C library, which they call.

namespace {

constexpr std::int64_t kBillion = 1'000'000'000;

// Of a thread: others, like the watchdog of the tests, sleep as ever and see the clock as it is.
thread_local bool isQuick = false;
thread_local std::int64_t slept = 0;  // nanoseconds by which the monotonic clock is ahead

using Sleep = int (*)(const timespec*, timespec*);
using Read = int (*)(clockid_t, timespec*);

template <typename Function>
Function Next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" int nanosleep(const timespec* wanted, timespec* left) {
    static const auto kReal = Next<Sleep>("nanosleep");
    if (!isQuick) return kReal(wanted, left);
    slept += wanted->tv_sec * kBillion + wanted->tv_nsec;
    return 0;
}

extern "C" int clock_gettime(clockid_t clock, timespec* out) noexcept {
    static const auto kReal = Next<Read>("clock_gettime");
    const int result = kReal(clock, out);
    if (result != 0 || clock != CLOCK_MONOTONIC) return result;
    const std::int64_t nanoseconds = out->tv_nsec + slept;
    out->tv_sec += nanoseconds / kBillion;
    out->tv_nsec = nanoseconds % kBillion;
    return 0;
}

QuickWaits::QuickWaits() {
    isQuick = true;
}

/// The clock stays ahead: it never goes back.
QuickWaits::~QuickWaits() {
    isQuick = false;
}

double QuickWaits::Slept() {
    return static_cast<double>(slept) / static_cast<double>(kBillion);
}
