#include "shell/frame/CEventPump.h"

#include <QCursor>
#include <QGuiApplication>

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

void CEventPump::BeginWait() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void CEventPump::EndWait() {
    QGuiApplication::restoreOverrideCursor();
}
