#include "shell/report/CReportFindBar.h"

#include "lang/FormatText.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
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
    : CFindBar({.bar = "reportFindBar", .words = "findWords", .found = "findPlaces"}, parent) {
    Field().setMinimumWidth(fontMetrics().averageCharWidth() * kLeastCharacters);
    QPushButton* previous = MakeButton(kPrevious, Mnemonics());
    QPushButton* next = MakeButton(kNext, Mnemonics());
    m_case = MakeCheckBox(LoadText(Text::FindCase), QStringLiteral("findCase"), Mnemonics());
    QPushButton* close = MakeButton(kClose, Mnemonics());
    for (QWidget* widget : {static_cast<QWidget*>(previous), static_cast<QWidget*>(next),
                            static_cast<QWidget*>(m_case), static_cast<QWidget*>(close)})
        Row().addWidget(widget);
    connect(this, &CFindBar::WordsChanged, this, &CReportFindBar::Changed);
    connect(m_case, &QCheckBox::toggled, this, &CReportFindBar::Changed);
    connect(previous, &QPushButton::clicked, this, [this] { Q_EMIT NextWanted(true); });
    connect(next, &QPushButton::clicked, this, [this] { Q_EMIT NextWanted(false); });
    connect(close, &QPushButton::clicked, this, &CReportFindBar::Close);
}

bool CReportFindBar::MatchesCase() const {
    return m_case->isChecked();
}

void CReportFindBar::ShowPlaces(int number, int count) {
    const bool isEmpty = Words().isEmpty();
    const QString words = isEmpty ? QString()
                          : count == 0
                              ? LoadText(Text::FindNothing)
                              : FormatText<Text::FindPlaces>(QString::number(number), QString::number(count));
    Say(words);
}

void CReportFindBar::Close() {
    hide();
    Q_EMIT Closed();
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
            CFindBar::keyPressEvent(event);
    }
}
