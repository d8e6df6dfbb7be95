#pragma once

#include "lang/Text.h"
#include "timers/CTimerPanel.h"

#include <QTimer>
#include <QWidget>

class CMnemonics;
class QHBoxLayout;
class QLabel;
class QPushButton;
class TimeDraft;
struct RecordDialogContext;

/// The timer of the record in the dialog: its time, counting once a second while it runs, and the buttons
/// Start, Pause and Stop (F7, F8, F9).
class CTimerPanelWidget final : public QWidget {
    Q_OBJECT

 public:
    CTimerPanelWidget(TimeDraft& draft, const RecordDialogContext& context, CMnemonics& mnemonics);

    /// The dialog shows a record.
    void Open();
    /// The dialog is done with it; a running timer goes on.
    void Close();
    /// After a change of the record's times by hand.
    void ShowTime();

 Q_SIGNALS:
    void AboutToAct();                 ///< a button was pressed: what is being typed is to be settled
    void AboutToStart();               ///< after that, where there is no timer yet
    void TimesChanged();               ///< by the timer
    void StateChanged(bool hasTimer);  ///< or may have

 private:
    struct ButtonRow;

    [[nodiscard]] CTimerPanel::Dialog Hooks();
    void BuildLabels(QHBoxLayout& row);
    void BuildButtons(QHBoxLayout& row, CMnemonics& mnemonics);
    QPushButton* AddButton(QHBoxLayout& row, const ButtonRow& button, CMnemonics& mnemonics);
    void SetFromTimer(int hours, int minutes, bool fromTimer);
    void ShowState();
    void FollowOthers();

    TimeDraft& m_draft;
    QTimer m_tick{this};
    QTimer m_watch{this};  ///< for what others do to the timer, a console command for instance
    TimerState m_shownState = TimerState::None;
    CTimerPanel m_panel;
    QLabel* m_time = nullptr;
    QLabel* m_state = nullptr;
    QPushButton* m_start = nullptr;
    QPushButton* m_pause = nullptr;
    QPushButton* m_stop = nullptr;
};
