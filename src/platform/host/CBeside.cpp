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
    {
        std::unique_lock lock(m_guard);
        m_changed.wait(lock, [this] { return !m_next; });
        m_next = std::move(work);
    }
    m_changed.notify_all();
}

void CBeside::Wait() {
    std::unique_lock lock(m_guard);
    m_changed.wait(lock, [this] { return !m_next && !m_isBusy; });
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
        m_changed.wait(lock, [this] { return m_next || m_isOver; });
        if (!m_next) return;
        const std::function<void()> work = std::exchange(m_next, nullptr);
        m_isBusy = true;
        lock.unlock();
        m_changed.notify_all();
        work();
        lock.lock();
        m_isBusy = false;
        m_changed.notify_all();
    }
}
