#pragma once

#include <chrono>
#include <random>

/// Waits on another program's lock in short random sleeps, 1 to 20 milliseconds and longer with each, so that
/// two programs that want the same lock don't stay in step.
class CLockWait {
 public:
    /// limit: how long to wait for one lock in all.
    explicit CLockWait(std::chrono::seconds limit) : m_limit(limit), m_random(std::random_device{}()) {}

    /// SQLite's busy handler; self is the CLockWait, count how often it was called for this lock. 0 gives up.
    static int Handle(void* self, int count);

 private:
    [[nodiscard]] bool Wait(int count);

    std::chrono::seconds m_limit;
    std::minstd_rand m_random;
    std::chrono::steady_clock::time_point m_since;
};
