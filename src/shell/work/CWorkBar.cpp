#include "shell/work/CWorkBar.h"

#include "lang/FormatText.h"
#include "shell/look/FormRows.h"
#include "shell/look/Glyphs.h"
#include "shell/look/PlainTip.h"
#include "shell/work/CElidedButton.h"
#include "shell/work/CRecentMenu.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPicture = 16;

/// As wide as it can get, in digits of one width, so that nothing moves while it counts.
QLabel* MakeCount() {
    auto* label = new QLabel;
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setMinimumWidth(QFontMetrics(font).horizontalAdvance(FormatText<Text::TimerCount>(88, 88, 88)));
    NameWidget(*label, u"workCount"_s, LoadText(Text::TimerCountName));
    return label;
}

void SetIcon(QToolButton& button, const char* icon) {
    button.setIcon(QIcon::fromTheme(QString::fromLatin1(icon)));
}

QString WithoutMnemonic(QString words) {
    return words.replace(u'&', u"&&"_s);
}

}  // namespace

CWorkBar::CWorkBar(QWidget* parent)
    : QWidget(parent), m_pages(new QStackedWidget), m_line(new CWorkLine), m_recent(new CRecentMenu(this)) {
    NameWidget(*this, u"workBar"_s, LoadText(Text::WorkBarTitle));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kFormSpace, 0, kFormSpace, 0);
    row->setSpacing(kFormSpace);
    m_workPage = MakeWorkPage();
    m_pages->addWidget(m_line);
    m_pages->addWidget(m_workPage);
    m_pages->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row->addWidget(m_pages, 1);
    m_recentButton = AddButton(*row, u"workRecent"_s, "document-open-recent", Text::WorkRecentName);
    m_recentButton->setText(LoadText(Text::WorkRecent));
    m_recentButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_recentButton->setToolTip(PlainTip(LoadText(Text::TipWorkRecent)));
    m_recentButton->setPopupMode(QToolButton::InstantPopup);
    m_recentButton->setMenu(m_recent);
    connect(m_line, &CWorkLine::Left, this, &CWorkBar::CloseLine);
    Front();
}

QWidget* CWorkBar::MakeWorkPage() {
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kFormSpace / 2);
    m_picture = new QLabel;
    m_picture->setObjectName(u"workPicture"_s);
    m_count = MakeCount();
    m_words = new CElidedButton;
    NameWidget(*m_words, u"workWords"_s, LoadText(Text::WorkBarTitle));
    m_words->setText(LoadText(Text::WorkNothingSaid));
    row->addWidget(m_picture);
    row->addWidget(m_count);
    row->addWidget(m_words);
    m_pause = AddButton(*row, u"workPause"_s, "media-playback-pause", Text::WorkPauseButton);
    QToolButton* stop = AddButton(*row, u"workStop"_s, "media-playback-stop", Text::WorkStopButton);
    // Called by its number once there are others.
    m_more = AddButton(*row, u"workMore"_s, nullptr, Text::WorkMoreName);
    m_more->setText(LoadText(Text::WorkMoreName));
    m_more->setPopupMode(QToolButton::InstantPopup);
    m_more->setMenu(new QMenu(m_more));
    row->addStretch(1);
    QToolButton* line = AddButton(*row, u"workElse"_s, "list-add", Text::WorkElse);
    connect(m_words, &QToolButton::clicked, this, [this] { Q_EMIT OpenWanted(m_works.front().id); });
    connect(m_pause, &QToolButton::clicked, this, &CWorkBar::PauseWanted);
    connect(stop, &QToolButton::clicked, this, &CWorkBar::StopWanted);
    connect(line, &QToolButton::clicked, this, &CWorkBar::LineWanted);
    connect(m_more->menu(), &QMenu::aboutToShow, this, &CWorkBar::ShowOthers);
    return page;
}

QToolButton* CWorkBar::AddButton(QHBoxLayout& row, const QString& name, const char* icon, Text words) {
    auto* button = new QToolButton;
    button->setAutoRaise(true);
    if (icon) SetIcon(*button, icon);
    button->setToolTip(LoadText(words));
    NameWidget(*button, name, LoadText(words));
    row.addWidget(button);
    return button;
}

void CWorkBar::ShowWorks(const std::vector<TimedWork>& works) {
    if (works == m_works) return;
    const auto isOther = [](const TimedWork& a, const TimedWork& b) {
        return a.id != b.id || a.work != b.work || a.isRunning != b.isRunning || a.since != b.since;
    };
    const bool isAnother = works.size() != m_works.size() || isOther(works.front(), m_works.front());
    m_works = works;
    if (isAnother) ShowFirst();
    if (!m_works.empty()) m_count->setText(m_works.front().Count());
}

void CWorkBar::ShowFirst() {
    if (!m_works.empty()) {
        const TimedWork& first = m_works.front();
        m_words->setText(first.Words());
        m_words->setToolTip(PlainTip(first.Words() + u'\n' + first.State()));
        m_words->setAccessibleName(FormatText<Text::WorkOpenName>(first.Words(), first.State()));
        m_words->updateGeometry();
        ShowPicture();
        ShowPause();
        m_more->setText(FormatText<Text::WorkMore>(static_cast<int>(m_works.size()) - 1));
        m_more->setVisible(m_works.size() > 1);
    }
    Front();
}

/// A running timer can be paused, a paused one goes on.
void CWorkBar::ShowPause() {
    const bool isRunning = m_works.front().isRunning;
    const QString words = LoadText(isRunning ? Text::WorkPauseButton : Text::WorkGoOnButton);
    SetIcon(*m_pause, isRunning ? "media-playback-pause" : "media-playback-start");
    m_pause->setToolTip(words);
    m_pause->setAccessibleName(words);
}

void CWorkBar::ShowPicture() {
    if (m_works.empty()) return;
    const Glyph glyph = m_works.front().isRunning ? Glyph::TimerRunning : Glyph::TimerPaused;
    m_picture->setPixmap(Glyphs::Picture(glyph, kPicture, devicePixelRatioF(),
                                         palette().color(QPalette::WindowText),
                                         palette().color(QPalette::Window)));
    m_picture->setAccessibleName(m_works.front().State());
}

void CWorkBar::ShowOthers() {
    QMenu& menu = *m_more->menu();
    menu.clear();
    for (std::size_t i = 1; i < m_works.size(); ++i) {
        const TimedWork& other = m_works[i];
        QAction* action =
            menu.addAction(FormatText<Text::WorkOther>(other.Count(), WithoutMnemonic(other.Words())));
        action->setToolTip(other.State());
        connect(action, &QAction::triggered, this, [this, id = other.id] { Q_EMIT OpenWanted(id); });
    }
}

void CWorkBar::Front() {
    const bool showsLine = m_works.empty() || m_isLineWanted;
    m_pages->setCurrentWidget(showsLine ? static_cast<QWidget*>(m_line) : m_workPage);
}

void CWorkBar::OpenLine() {
    m_isLineWanted = true;
    Front();
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

void CWorkBar::CloseLine() {
    m_isLineWanted = false;
    m_line->clear();
    Front();
}

/// With the first one chosen already, as it is opened by a key.
void CWorkBar::OpenRecent() {
    m_recent->popup(m_recentButton->mapToGlobal(QPoint(0, m_recentButton->height())));
    m_recent->setActiveAction(m_recent->actions().value(0));
}

void CWorkBar::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    ShowPicture();
    if (!m_works.empty()) ShowPause();
}
