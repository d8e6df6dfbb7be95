#pragma once

#include "lang/Text.h"
#include "viewmodel/work/WorkShown.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <functional>
#include <vector>

class CRecentMenu;

/// The icon in the notification area: its tip says what runs, its menu starts, pauses and stops.
class CTrayIcon final : public QObject {
    Q_OBJECT

 public:
    /// The hours worked today, in words; asked for each time that the menu opens.
    using Today = std::function<QString()>;
    /// Whether commands can be given now: not while a dialog waits for an answer.
    using MayAct = std::function<bool()>;

    CTrayIcon(Today today, MayAct mayAct, QObject* parent = nullptr);

    void ShowWorks(const std::vector<TimedWork>& works);
    /// In the notification area, or out of it.
    void SetShown(bool isShown) { m_icon.setVisible(isShown); }
    [[nodiscard]] bool IsShown() const { return m_icon.isVisible(); }
    void Say(const QString& what);
    [[nodiscard]] CRecentMenu& Recent() const { return *m_recent; }
    [[nodiscard]] QMenu& Menu() { return m_menu; }

 Q_SIGNALS:
    void CommandWanted(int command);
    void WindowWanted();

 private:
    QAction* Add(Text words, const char* name, int command);
    void Update();

    Today m_today;
    MayAct m_mayAct;
    std::vector<TimedWork> m_works;
    QMenu m_menu;
    QSystemTrayIcon m_icon;
    QAction* m_todayLine = nullptr;
    QAction* m_start = nullptr;
    QAction* m_pause = nullptr;
    QAction* m_stop = nullptr;
    CRecentMenu* m_recent;
};
