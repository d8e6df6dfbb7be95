#include "shell/frame/CFrameTray.h"

#include "config/Settings.h"
#include "lang/LoadText.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameWork.h"
#include "shell/work/CRecentMenu.h"
#include "viewmodel/commands/CommandTable.h"

#include <QApplication>
#include <QWidget>
#include <utility>

CFrameTray::CFrameTray(Parts parts)
    : m_parts(std::move(parts)), m_icon(m_parts.today, [this] {
          return !QApplication::activeModalWidget() && !m_parts.control.State().busy;
      }) {
    CFrameWork& work = m_parts.work;
    m_icon.Recent().SetRecent([&work] { return work.RecentWorks(); });
    connect(&work, &CFrameWork::Shown, this, [this, &work] { m_icon.ShowWorks(work.Works()); });
    connect(&m_icon, &CTrayIcon::CommandWanted, this, &CFrameTray::RunCommand);
    connect(&m_icon, &CTrayIcon::WindowWanted, this, &CFrameTray::ShowWindow);
    connect(&m_icon.Recent(), &CRecentMenu::Chosen, &work, &CFrameWork::Start);
    m_icon.SetShown(true);
}

/// The line to type into is in the window.
void CFrameTray::RunCommand(int command) {
    if (command == Command::kWorkLine) ShowWindow();
    m_parts.control.RunCommand(command);
}

void CFrameTray::ShowWindow() {
    QApplication::setQuitOnLastWindowClosed(true);
    m_parts.control.ComeForward();
}

/// The end of the session closes the window as well, and there it ends.
bool CFrameTray::TakeWindow() {
    QApplication::setQuitOnLastWindowClosed(true);
    if (m_isLeaving || !m_parts.settings.closeToTray || !m_icon.IsShown() || qApp->isSavingSession())
        return false;
    // A question that is answered while the window is hidden is the last window to close.
    QApplication::setQuitOnLastWindowClosed(false);
    m_parts.control.Window().hide();
    if (!std::exchange(m_hasSaid, true)) m_icon.Say(LoadText(Text::TrayStays));
    return true;
}

void CFrameTray::LetGo() {
    m_isLeaving = true;
    QApplication::setQuitOnLastWindowClosed(true);
}
