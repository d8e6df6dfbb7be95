#pragma once

#include "lang/Text.h"
#include "shell/work/CWorkLine.h"
#include "viewmodel/work/WorkShown.h"

#include <QWidget>
#include <vector>

class CElidedButton;
class CRecentMenu;
class QHBoxLayout;
class QLabel;
class QStackedWidget;
class QToolButton;

/// What is worked on now: state, time, words, pause and stop, and the other timers behind a button. Without a
/// timer it is a line to type into; that line comes in front of a running timer too when something else is to
/// begin. Beside it stands what was worked on last.
class CWorkBar final : public QWidget {
    Q_OBJECT

 public:
    explicit CWorkBar(QWidget* parent = nullptr);

    /// The first is the one shown. Cheap where nothing but the time differs.
    void ShowWorks(const std::vector<TimedWork>& works);
    [[nodiscard]] CWorkLine& Line() const { return *m_line; }
    [[nodiscard]] CRecentMenu& Recent() const { return *m_recent; }
    /// The line comes in front, with the keyboard in it.
    void OpenLine();
    /// Back to what runs, the line empty.
    void CloseLine();
    void OpenRecent();

 Q_SIGNALS:
    void OpenWanted(const QString& id);
    void PauseWanted();
    void StopWanted();
    void LineWanted();

 protected:
    void changeEvent(QEvent* event) override;

 private:
    [[nodiscard]] QWidget* MakeWorkPage();
    QToolButton* AddButton(QHBoxLayout& row, const QString& name, const char* icon, Text words);
    void ShowFirst();
    void ShowOthers();
    void ShowPicture();
    void ShowPause();
    void Front();

    std::vector<TimedWork> m_works;
    bool m_isLineWanted = false;
    QStackedWidget* m_pages;
    CWorkLine* m_line;
    QWidget* m_workPage = nullptr;
    QLabel* m_picture = nullptr;
    QLabel* m_count = nullptr;
    CElidedButton* m_words = nullptr;
    QToolButton* m_more = nullptr;
    QToolButton* m_pause = nullptr;
    QToolButton* m_recentButton = nullptr;
    CRecentMenu* m_recent;
};
