#pragma once

#include <ctime>

/// What this process has used of the processors since it was started, in microseconds. What else the machine
/// does isn't counted, and neither is waiting.
inline double ProcessorMicroseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

template <class Work>
double Took(Work&& work) {
    const double start = ProcessorMicroseconds();
    work();
    return ProcessorMicroseconds() - start;
}

/// By the clock, in microseconds from any moment on.
inline double ClockMicroseconds() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

/// What a work took: of all processors together, and until it was done.
struct Spent {
    double processor = 0;
    double elapsed = 0;
};

inline Spent operator+(const Spent& a, const Spent& b) {
    return {a.processor + b.processor, a.elapsed + b.elapsed};
}

template <class Work>
Spent SpentOn(Work&& work) {
    const double start = ClockMicroseconds();
    const double processor = Took(work);
    return {processor, ClockMicroseconds() - start};
}
