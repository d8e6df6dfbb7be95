#pragma once

#include <QString>
#include <chrono>
#include <random>

#include "platform/host/CWaitBudget.h"

/// Waits on another program's lock in short random sleeps, 1 to 20 milliseconds and longer with each, so that
/// two programs that want the same lock don't stay in step. What it waits comes off the budget in force.
class CLockWait {
 public:
    /// what: the file whose lock is waited for; limit: how long to wait for one lock, however much of the
    /// budget is left.
    CLockWait(const QString& what, std::chrono::seconds limit)
        : m_what(what), m_limit(limit), m_own(limit), m_random(std::random_device{}()) {}

    /// count: how often this was called before for the same lock. False gives up.
    [[nodiscard]] bool Wait(int count);

 private:
    QString m_what;
    std::chrono::milliseconds m_limit;
    CWaitBudget m_own;  ///< where no budget is in force
    std::minstd_rand m_random;
    std::chrono::steady_clock::time_point m_since;
};
