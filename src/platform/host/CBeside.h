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

    /// Behind the piece that is under way, if there is one; where another one waits already, it is waited for
    /// that to begin. So when this returns all pieces but the last two are done.
    void Start(std::function<void()> work);
    /// Until nothing waits or is under way.
    void Wait();

 private:
    [[nodiscard]] bool HasThread();
    void Serve();

    std::thread m_thread;
    std::mutex m_guard;
    std::condition_variable m_changed;
    std::function<void()> m_next;  ///< waits; none: nothing does
    bool m_isBusy = false;
    bool m_isOver = false;
};
