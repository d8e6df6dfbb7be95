#include "platform/host/CBeside.h"

#include <system_error>
#include <utility>

CBeside::~CBeside() {
    if (!m_thread.joinable()) return;
    Wait();
    {
        const std::lock_guard lock(m_guard);
        m_isOver = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void CBeside::Start(std::function<void()> work) {
    if (!HasThread()) return work();
    Wait();
    {
        const std::lock_guard lock(m_guard);
        m_work = std::move(work);
    }
    m_changed.notify_all();
}

void CBeside::Wait() {
    std::unique_lock lock(m_guard);
    m_changed.wait(lock, [this] { return !m_work; });
}

bool CBeside::HasThread() {
    if (m_thread.joinable()) return true;
    try {
        m_thread = std::thread([this] { Serve(); });
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void CBeside::Serve() {
    std::unique_lock lock(m_guard);
    for (;;) {
        m_changed.wait(lock, [this] { return m_work || m_isOver; });
        if (!m_work) return;
        lock.unlock();
        m_work();
        lock.lock();
        m_work = nullptr;
        m_changed.notify_all();
    }
}
