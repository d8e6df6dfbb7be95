#include "shell/frame/CEventPump.h"

#include <QCoreApplication>

namespace {
constexpr int kEveryMs = 50;
}

bool CEventPump::Pump() {
    if (m_quit) return false;
    if (m_since.isValid() && m_since.elapsed() < kEveryMs) return true;
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    m_since.start();
    return !m_quit;
}
