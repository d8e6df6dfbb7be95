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
