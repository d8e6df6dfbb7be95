#include "platform/host/CLockWait.h"

#include <algorithm>

bool CLockWait::Wait(int count) {
    const auto now = std::chrono::steady_clock::now();
    if (count == 0) {
        m_since = now;
        m_own.Renew();
    }
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(now - m_since);
    if (waited >= m_limit) return false;
    std::uniform_int_distribution<int> sleep(1, std::min(2 + count, 20));
    CWaitBudget& budget = theWaitBudget ? *theWaitBudget : m_own;
    return budget.Wait(m_what, waited, std::chrono::milliseconds(sleep(m_random)));
}
