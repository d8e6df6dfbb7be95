#include "shell/record/CTimerPanelWidget.h"

#include "entry/TimeDraft.h"
#include "lang/FormatText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/record/RecordDialogParts.h"
#include "timers/TimerTexts.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <cerrno>

/// A button, its key, and what it does to the timer.
struct CTimerPanelWidget::ButtonRow {
    const char* name;
    Text caption;
    const char* icon;
    Qt::Key key;
    bool (CTimerPanel::*act)();
};

namespace {

constexpr int kTickMilliseconds = 1000;

Text StateText(TimerState state) {
    if (state == TimerState::Running) return Text::TimerIsRunning;
    return state == TimerState::Paused ? Text::TimerIsPaused : Text::TimerIsNone;
}

QString StateWords(TimerState state, const std::optional<TimeDifference>& difference) {
    const QString words = LoadText(StateText(state));
    return difference ? FormatText<Text::TimerTrueTime>(words, HoursText(difference->passed)) : words;
}

/// Large, and as wide as it can get, so that nothing moves while it counts.
QLabel* MakeTimeLabel() {
    auto* label = new QLabel;
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    font.setBold(true);
    label->setFont(font);
    label->setMinimumWidth(QFontMetrics(font).horizontalAdvance(FormatText<Text::TimerCount>(88, 88, 88)));
    NameWidget(*label, QStringLiteral("timerTime"), LoadText(Text::TimerCountName));
    return label;
}

}  // namespace

CTimerPanelWidget::CTimerPanelWidget(TimeDraft& draft, const RecordDialogContext& context,
                                     CMnemonics& mnemonics)
    : m_draft(draft), m_panel(draft.Record(), context.timers, context.document, context.prompt, Hooks()) {
    NameWidget(*this, QStringLiteral("timerPanel"), LoadText(Text::TimesDrivenByTimerTitle));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kFormSpace);
    BuildLabels(*row);
    row->addStretch();
    BuildButtons(*row, mnemonics);
    connect(&m_tick, &QTimer::timeout, this, [this] {
        m_panel.PanelTick();
        ShowState();
    });
    m_watch.setObjectName(QStringLiteral("timerWatch"));
    m_watch.setInterval(kTickMilliseconds);
    connect(&m_watch, &QTimer::timeout, this, &CTimerPanelWidget::FollowOthers);
}

void CTimerPanelWidget::BuildLabels(QHBoxLayout& row) {
    m_time = MakeTimeLabel();
    row.addWidget(m_time);
    row.addSpacing(kFormSpace);
    m_state = new QLabel;
    NameWidget(*m_state, QStringLiteral("timerState"), LoadText(Text::TimesDrivenByTimerTitle));
    row.addWidget(m_state);
}

void CTimerPanelWidget::BuildButtons(QHBoxLayout& row, CMnemonics& mnemonics) {
    static constexpr ButtonRow kStart{.name = "timerStart",
                                      .caption = Text::TimerStartButton,
                                      .icon = "media-playback-start",
                                      .key = Qt::Key_F7,
                                      .act = &CTimerPanel::PanelStart};
    static constexpr ButtonRow kPause{.name = "timerPause",
                                      .caption = Text::TimerPauseButton,
                                      .icon = "media-playback-pause",
                                      .key = Qt::Key_F8,
                                      .act = &CTimerPanel::PanelPause};
    static constexpr ButtonRow kStop{.name = "timerStop",
                                     .caption = Text::TimerStopButton,
                                     .icon = "media-playback-stop",
                                     .key = Qt::Key_F9,
                                     .act = &CTimerPanel::PanelStop};
    m_start = AddButton(row, kStart, mnemonics);
    m_pause = AddButton(row, kPause, mnemonics);
    m_stop = AddButton(row, kStop, mnemonics);
    m_start->setCheckable(true);
    m_pause->setCheckable(true);
}

CTimerPanel::Dialog CTimerPanelWidget::Hooks() {
    CTimerPanel::Dialog hooks;
    hooks.setFromTimer = [this](int hours, int minutes, int, bool fromTimer) {
        SetFromTimer(hours, minutes, fromTimer);
    };
    hooks.startTick = [this] {
        m_tick.start(kTickMilliseconds);
        return m_tick.isActive() ? 0 : EAGAIN;
    };
    hooks.stopTick = [this] { m_tick.stop(); };
    hooks.repaintButtons = [this] { ShowState(); };
    return hooks;
}

QPushButton* CTimerPanelWidget::AddButton(QHBoxLayout& row, const ButtonRow& button, CMnemonics& mnemonics) {
    const QIcon icon = QIcon::fromTheme(QString::fromLatin1(button.icon));
    auto* widget = new QPushButton(icon, mnemonics.Take(LoadText(button.caption)));
    NameWidget(*widget, QString::fromLatin1(button.name), CMnemonics::Plain(LoadText(button.caption)));
    widget->setToolTip(QKeySequence(button.key).toString(QKeySequence::NativeText));
    // Return accepts the dialog wherever the focus is; Space presses the button.
    widget->setAutoDefault(false);
    row.addWidget(widget);
    connect(widget, &QPushButton::clicked, this, [this, act = button.act] {
        Q_EMIT AboutToAct();
        if (act == &CTimerPanel::PanelStart && m_panel.State() == TimerState::None) Q_EMIT AboutToStart();
        (m_panel.*act)();
        ShowState();
    });
    connect(new QShortcut(button.key, this), &QShortcut::activated, widget, &QPushButton::click);
    return widget;
}

void CTimerPanelWidget::SetFromTimer(int hours, int minutes, bool fromTimer) {
    m_draft.SetFromTimer(hours, minutes, fromTimer);
    Q_EMIT TimesChanged();
}

void CTimerPanelWidget::Open() {
    m_panel.PanelOpen();
    ShowState();
    m_watch.start();
}

/// Nothing is counted here: that is the tick's.
void CTimerPanelWidget::FollowOthers() {
    const TimerState state = m_panel.State();
    if (state == m_shownState) return;
    if (state != TimerState::Running) m_tick.stop();
    m_panel.PanelOpen();
    ShowState();
}

void CTimerPanelWidget::Close() {
    m_watch.stop();
    m_panel.PanelClose();
}

void CTimerPanelWidget::ShowTime() {
    ShowValue(*m_time, LoadText(Text::TimerCountName), m_panel.DurationText());
}

/// The button of the present state looks pressed; a press that changed nothing is undone here too.
void CTimerPanelWidget::ShowState() {
    const TimerState state = m_shownState = m_panel.State();
    m_start->setChecked(state == TimerState::Running);
    m_pause->setChecked(state == TimerState::Paused);
    for (QPushButton* button : {m_pause, m_stop}) button->setEnabled(state != TimerState::None);
    ShowValue(*m_state, LoadText(Text::TimesDrivenByTimerTitle), StateWords(state, m_panel.Difference()));
    ShowTime();
    Q_EMIT StateChanged(state != TimerState::None);
}
