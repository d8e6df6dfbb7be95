#include "platform/host/CWaitBudget.h"

#include <algorithm>
#include <thread>

CWaitBudget* theWaitBudget = nullptr;

std::chrono::milliseconds CWaitBudget::Left() const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_limit - m_used);
    return std::max(left, std::chrono::milliseconds(0));
}

bool CWaitBudget::Wait(const QString& what, std::chrono::milliseconds waited,
                       std::chrono::milliseconds sleep) {
    // A message that is served within a wait doesn't wait itself: the outer one couldn't go on.
    if (IsWaiting() || m_used >= m_limit) return false;
    const auto start = std::chrono::steady_clock::now();
    m_isWaiting = true;
    std::this_thread::sleep_for(sleep);
    const bool goesOn =
        !m_listener || m_listener->OnWaiting(what, waited + sleep) == CWaitListener::Choice::GoOn;
    m_isWaiting = false;
    const auto spent = std::chrono::steady_clock::now() - start;
    m_used = goesOn ? m_used + spent : m_limit;
    return goesOn;
}

void CWaitBudget::Renew() {
    if (!IsWaiting()) m_used = {};
}
