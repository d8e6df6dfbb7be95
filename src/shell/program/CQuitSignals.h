#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

/// The end of the session and Ctrl+C on a terminal (SIGTERM, SIGINT, SIGHUP) close the window in the ordinary
/// way, so that timers and layout are kept. One at a time.
class CQuitSignals {
 public:
    explicit CQuitSignals(std::function<void()> leave);
    ~CQuitSignals();
    CQuitSignals(const CQuitSignals&) = delete;
    CQuitSignals& operator=(const CQuitSignals&) = delete;

 private:
    std::function<void()> m_leave;
    std::unique_ptr<QSocketNotifier> m_notifier;
    bool m_isLeaving = false;
};
