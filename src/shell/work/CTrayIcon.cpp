#include "shell/work/CTrayIcon.h"

#include "lang/FormatText.h"
#include "shell/look/Glyphs.h"
#include "shell/work/CRecentMenu.h"
#include "viewmodel/commands/CommandTable.h"

namespace {

/// "0:42 Client A · Design" and, below, how it stands; without a timer that there is none.
QString TipOf(const std::vector<TimedWork>& works) {
    if (works.empty())
        return FormatText<Text::TrayTip>(LoadText(Text::ProgramTitle), LoadText(Text::TrayIdle));
    const TimedWork& first = works.front();
    return FormatText<Text::TrayTip>(FormatText<Text::TrayTitle>(first.Hours(), first.Words()),
                                     first.State());
}

}  // namespace

CTrayIcon::CTrayIcon(Today today, MayAct mayAct, QObject* parent)
    : QObject(parent),
      m_today(std::move(today)),
      m_mayAct(std::move(mayAct)),
      m_icon(Glyphs::ProgramIcon(), this),
      m_recent(new CRecentMenu(&m_menu)) {
    m_menu.setObjectName(QStringLiteral("trayMenu"));
    m_todayLine = m_menu.addAction(QString());
    m_todayLine->setObjectName(QStringLiteral("trayToday"));
    m_todayLine->setEnabled(false);
    m_menu.addSeparator();
    m_start = Add(Text::TrayStart, "trayStart", Command::kWorkLine);
    m_pause = Add(Text::TrayPause, "trayPause", Command::kWorkPause);
    m_stop = Add(Text::TrayStop, "trayStop", Command::kWorkStop);
    m_recent->setTitle(LoadText(Text::TrayRecent));
    m_menu.addMenu(m_recent);
    m_menu.addSeparator();
    connect(m_menu.addAction(LoadText(Text::TrayShow)), &QAction::triggered, this, &CTrayIcon::WindowWanted);
    Add(Text::TrayQuit, "trayQuit", Command::kExit);
    connect(&m_menu, &QMenu::aboutToShow, this, &CTrayIcon::Update);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) Q_EMIT WindowWanted();
    });
    m_icon.setContextMenu(&m_menu);
    ShowWorks({});
}

QAction* CTrayIcon::Add(Text words, const char* name, int command) {
    QAction* action = m_menu.addAction(LoadText(words));
    action->setObjectName(QString::fromLatin1(name));
    connect(action, &QAction::triggered, this, [this, command] { Q_EMIT CommandWanted(command); });
    return action;
}

void CTrayIcon::ShowWorks(const std::vector<TimedWork>& works) {
    m_works = works;
    const QString tip = TipOf(works);
    if (tip != m_icon.toolTip()) m_icon.setToolTip(tip);
    Update();
}

/// What can't be done now isn't offered.
void CTrayIcon::Update() {
    const bool mayAct = m_mayAct();
    const bool isPaused = !m_works.empty() && !m_works.front().isRunning;
    m_todayLine->setText(FormatText<Text::TrayToday>(m_today()));
    m_pause->setText(LoadText(isPaused ? Text::TrayGoOn : Text::TrayPause));
    m_start->setEnabled(mayAct);
    m_recent->setEnabled(mayAct);
    for (QAction* action : {m_pause, m_stop}) action->setEnabled(mayAct && !m_works.empty());
}

void CTrayIcon::Say(const QString& what) {
    m_icon.showMessage(LoadText(Text::ProgramTitle), what);
}
