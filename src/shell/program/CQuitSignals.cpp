#include "shell/program/CQuitSignals.h"

#include <fcntl.h>
#include <unistd.h>
#include <array>
#include <csignal>

namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};
int thePipe[2] = {-1, -1};

/// Nothing but a write is allowed here.
void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(thePipe[1], &byte, 1);
}

void Install(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

CQuitSignals::CQuitSignals(std::function<void()> leave) : m_leave(std::move(leave)) {
    if (::pipe2(thePipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    m_notifier = std::make_unique<QSocketNotifier>(thePipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        char byte = 0;
        while (::read(thePipe[0], &byte, 1) > 0) {
        }
        m_isLeaving = true;
        m_leave();
    });
    Install(OnSignal);
}

CQuitSignals::~CQuitSignals() {
    if (!m_notifier) return;
    // A program that is on its way out writes its last and isn't to be cut off by a second signal.
    Install(m_isLeaving ? SIG_IGN : SIG_DFL);
    m_notifier.reset();
    ::close(thePipe[0]);
    ::close(thePipe[1]);
}
