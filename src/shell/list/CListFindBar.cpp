#include "shell/list/CListFindBar.h"

#include "calendar/GroupedNumber.h"
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
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMostCharacters = 255;

QToolButton* MakeClose(QWidget* parent) {
    auto* close = new QToolButton(parent);
    close->setIcon(QIcon::fromTheme(u"window-close"_s));
    close->setAutoRaise(true);
    close->setToolTip(LoadText(Text::TipFindClose));
    NameWidget(*close, u"listFindClose"_s, LoadText(Text::FindClose));
    return close;
}

}  // namespace

CListFindBar::CListFindBar(QWidget* parent) : QWidget(parent), m_words(new QLineEdit), m_count(new QLabel) {
    setObjectName(u"listFindBar"_s);
    Build();
    hide();
}

void CListFindBar::Build() {
    // The menus have their letters in this window as well: the bar takes those that they leave.
    CMnemonics mnemonics;
    for (const MenuRow& menu : MenuTable())
        if (menu.parent == menu.menu) static_cast<void>(mnemonics.Take(LoadText(menu.caption)));
    auto* row = new QHBoxLayout(this);
    row->setSpacing(kFormSpace);
    row->setContentsMargins(kFormSpace, kFormSpace / 2, kFormSpace, kFormSpace / 2);
    auto* label = new QLabel(mnemonics.Give(LoadText(Text::FindLabel)));
    label->setBuddy(m_words);
    NameWidget(*m_words, u"listFindWords"_s, LoadText(Text::FindLabel));
    m_words->setPlaceholderText(LoadText(Text::ListFindHint));
    m_words->setClearButtonEnabled(true);
    LimitLength(*m_words, kMostCharacters);
    NameWidget(*m_count, u"listFindCount"_s, LoadText(Text::FindLabel));
    m_everywhere = MakeCheckBox(LoadText(Text::FindEverywhere), u"listFindEverywhere"_s, mnemonics);
    m_everywhere->setToolTip(LoadText(Text::TipFindEverywhere));
    QToolButton* close = MakeClose(this);
    row->addWidget(label);
    row->addWidget(m_words, 1);
    row->addWidget(m_count);
    row->addWidget(m_everywhere);
    row->addWidget(close);
    connect(m_words, &QLineEdit::textChanged, this, &CListFindBar::WordsChanged);
    connect(m_everywhere, &QCheckBox::toggled, this, &CListFindBar::EverywhereChanged);
    connect(close, &QToolButton::clicked, this, &CListFindBar::CloseWanted);
}

void CListFindBar::Open() {
    show();
    m_words->setFocus(Qt::ShortcutFocusReason);
    m_words->selectAll();
}

/// For the next search there are neither words nor the switch left.
void CListFindBar::Close() {
    hide();
    m_words->clear();
    SetEverywhere(false);
}

QString CListFindBar::Words() const {
    return m_words->text();
}

bool CListFindBar::IsEverywhere() const {
    return m_everywhere->isChecked();
}

void CListFindBar::SetEverywhere(bool isEverywhere) {
    m_everywhere->setChecked(isEverywhere);
}

void CListFindBar::ShowFound(int count) {
    const bool isEmpty = m_words->text().trimmed().isEmpty();
    const QString number = GroupedNumber(TheRegion(), count, 0);
    const QString words = isEmpty      ? QString()
                          : count == 0 ? LoadText(Text::FindNothing)
                                       : FormatText<Text::FoundRecords>(number);
    ShowValue(*m_count, LoadText(Text::FindLabel), words);
}

bool CListFindBar::HasKeyboard() const {
    return isVisible() && isAncestorOf(window()->focusWidget());
}

/// Escape closes this bar, whatever it is a shortcut of elsewhere.
bool CListFindBar::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void CListFindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            Q_EMIT CloseWanted();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            Q_EMIT ListWanted();
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}
