#pragma once

#include "shell/work/CTrayIcon.h"

#include <QObject>

class CFrameControl;
class CFrameWork;
struct Settings;

/// The window's icon in the notification area, where the desktop has one. A window that is closed may go on
/// behind it.
class CFrameTray final : public QObject {
    Q_OBJECT

 public:
    /// All must outlive it.
    struct Parts {
        CFrameControl& control;
        CFrameWork& work;
        const Settings& settings;
        CTrayIcon::Today today;
    };
    explicit CFrameTray(Parts parts);

    [[nodiscard]] CTrayIcon& Icon() { return m_icon; }
    /// The window is about to close: true when it is hidden instead, and the program goes on.
    [[nodiscard]] bool TakeWindow();
    /// The program ends: the window isn't taken any more.
    void LetGo();

 private:
    void RunCommand(int command);
    void ShowWindow();

    Parts m_parts;
    CTrayIcon m_icon;
    bool m_isLeaving = false;
    bool m_hasSaid = false;
};
