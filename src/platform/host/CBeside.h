#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// One more thread, which does a piece of work while the caller goes on. It is kept from one piece to the
/// next: pieces of a millisecond are worth it then. Where the system has no thread left the caller does the
/// work itself.
///
/// What a piece of work uses is its own from Start to Wait.
class CBeside {
 public:
    CBeside() = default;
    /// Waits.
    ~CBeside();
    CBeside(const CBeside&) = delete;
    CBeside& operator=(const CBeside&) = delete;

    /// Waits for the piece before.
    void Start(std::function<void()> work);
    /// Until nothing is under way.
    void Wait();

 private:
    [[nodiscard]] bool HasThread();
    void Serve();

    std::thread m_thread;
    std::mutex m_guard;
    std::condition_variable m_changed;
    std::function<void()> m_work;  ///< to be done or under way; none: nothing is
    bool m_isOver = false;
};
