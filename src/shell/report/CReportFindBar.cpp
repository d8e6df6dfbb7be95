#include "shell/report/CReportFindBar.h"

#include "lang/FormatText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "viewmodel/commands/MenuTable.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int kLeastCharacters = 16;

struct Words {
    Text caption;
    Text tip;
    const char* icon;
    const char* name;
};
constexpr Words kPrevious{Text::FindPrevious, Text::TipFindPrevious, "go-up", "findPrevious"};
constexpr Words kNext{Text::FindNext, Text::TipFindNext, "go-down", "findNext"};
constexpr Words kClose{Text::FindClose, Text::TipFindClose, "window-close", "findClose"};

QPushButton* MakeButton(const Words& words, CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Give(LoadText(words.caption)));
    button->setIcon(QIcon::fromTheme(QString::fromLatin1(words.icon)));
    button->setToolTip(LoadText(words.tip));
    button->setAutoDefault(false);
    NameWidget(*button, QString::fromLatin1(words.name), LoadText(words.caption));
    return button;
}

}  // namespace

CReportFindBar::CReportFindBar(QWidget* parent)
    : QWidget(parent), m_words(new QLineEdit), m_places(new QLabel) {
    setObjectName(QStringLiteral("reportFindBar"));
    Build();
    hide();
}

void CReportFindBar::Build() {
    // The menus have their letters in this window as well: the bar takes those that they leave.
    CMnemonics mnemonics;
    for (const MenuRow& menu : MenuTable())
        if (menu.parent == menu.menu) static_cast<void>(mnemonics.Take(LoadText(menu.caption)));
    auto* row = new QHBoxLayout(this);
    row->setSpacing(kFormSpace);
    row->setContentsMargins(kFormSpace, kFormSpace / 2, kFormSpace, kFormSpace / 2);
    auto* label = new QLabel(mnemonics.Give(LoadText(Text::FindLabel)));
    label->setBuddy(m_words);
    NameWidget(*m_words, QStringLiteral("findWords"), LoadText(Text::FindLabel));
    m_words->setClearButtonEnabled(true);
    m_words->setMinimumWidth(fontMetrics().averageCharWidth() * kLeastCharacters);
    NameWidget(*m_places, QStringLiteral("findPlaces"), LoadText(Text::FindLabel));
    QPushButton* previous = MakeButton(kPrevious, mnemonics);
    QPushButton* next = MakeButton(kNext, mnemonics);
    m_case = MakeCheckBox(LoadText(Text::FindCase), QStringLiteral("findCase"), mnemonics);
    QPushButton* close = MakeButton(kClose, mnemonics);
    row->addWidget(label);
    row->addWidget(m_words, 1);
    for (QWidget* widget : {static_cast<QWidget*>(m_places), static_cast<QWidget*>(previous),
                            static_cast<QWidget*>(next), static_cast<QWidget*>(m_case)})
        row->addWidget(widget);
    row->addWidget(close);
    connect(m_words, &QLineEdit::textChanged, this, &CReportFindBar::Changed);
    connect(m_case, &QCheckBox::toggled, this, &CReportFindBar::Changed);
    connect(previous, &QPushButton::clicked, this, [this] { Q_EMIT NextWanted(true); });
    connect(next, &QPushButton::clicked, this, [this] { Q_EMIT NextWanted(false); });
    connect(close, &QPushButton::clicked, this, &CReportFindBar::Close);
}

void CReportFindBar::Open() {
    show();
    m_words->setFocus(Qt::ShortcutFocusReason);
    m_words->selectAll();
}

QString CReportFindBar::Words() const {
    return m_words->text();
}

bool CReportFindBar::MatchesCase() const {
    return m_case->isChecked();
}

void CReportFindBar::ShowPlaces(int number, int count) {
    const bool isEmpty = m_words->text().isEmpty();
    const QString words = isEmpty ? QString()
                          : count == 0
                              ? LoadText(Text::FindNothing)
                              : FormatText<Text::FindPlaces>(QString::number(number), QString::number(count));
    ShowValue(*m_places, LoadText(Text::FindLabel), words);
}

void CReportFindBar::Close() {
    hide();
    Q_EMIT Closed();
}

/// Escape closes this bar and not the report, whose shortcut it is elsewhere.
bool CReportFindBar::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void CReportFindBar::keyPressEvent(QKeyEvent* event) {
    const bool backwards = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_Escape:
            return Close();
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F3:
            Q_EMIT NextWanted(backwards);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}
