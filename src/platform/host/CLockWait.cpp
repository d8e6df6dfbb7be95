#include "platform/host/CLockWait.h"

#include <algorithm>
#include <thread>

int CLockWait::Handle(void* self, int count) {
    return static_cast<CLockWait*>(self)->Wait(count) ? 1 : 0;
}

bool CLockWait::Wait(int count) {
    const auto now = std::chrono::steady_clock::now();
    if (count == 0) m_since = now;
    if (now - m_since >= m_limit) return false;
    std::uniform_int_distribution<int> milliseconds(1, std::min(2 + count, 20));
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(m_random)));
    return true;
}
