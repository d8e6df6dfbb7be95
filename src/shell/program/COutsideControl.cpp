#include "shell/program/COutsideControl.h"

#include "shell/frame/CMainFrame.h"

#include <QApplication>
#include <QTimer>
#include <chrono>

using namespace std::chrono_literals;

void COutsideControl::Refresh() {
    if (m_frame) m_frame->Refresh();
}

bool COutsideControl::IsBusy() const {
    return !m_frame || m_frame->IsBusy();
}

void COutsideControl::Raise() {
    if (m_frame) return m_frame->ComeForward();
    QWidget* box = QApplication::activeModalWidget();
    if (!box) return;
    box->raise();
    box->activateWindow();
}

void COutsideControl::Leave() {
    if (m_frame)
        m_frame->Leave();
    else if (QWidget* box = QApplication::activeModalWidget())
        box->close();
}

void COutsideControl::WhenFree(const std::function<void()>& work) {
    if (!m_frame) return;
    if (!QApplication::activeModalWidget() && !QApplication::activePopupWidget()) return work();
    QTimer::singleShot(1s, m_frame, [this, work] { WhenFree(work); });
}
