#include "shell/list/CListFindBar.h"

#include "calendar/GroupedNumber.h"
#include "lang/FormatText.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
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

CListFindBar::CListFindBar(QWidget* parent)
    : CFindBar({.bar = "listFindBar", .words = "listFindWords", .found = "listFindCount"}, parent) {
    Field().setPlaceholderText(LoadText(Text::ListFindHint));
    LimitLength(Field(), kMostCharacters);
    m_everywhere = MakeCheckBox(LoadText(Text::FindEverywhere), u"listFindEverywhere"_s, Mnemonics());
    m_everywhere->setToolTip(LoadText(Text::TipFindEverywhere));
    QToolButton* close = MakeClose(this);
    Row().addWidget(m_everywhere);
    Row().addWidget(close);
    connect(m_everywhere, &QCheckBox::toggled, this, &CListFindBar::EverywhereChanged);
    connect(close, &QToolButton::clicked, this, &CListFindBar::CloseWanted);
}

/// For the next search there are neither words nor the switch left.
void CListFindBar::Close() {
    hide();
    Field().clear();
    SetEverywhere(false);
}

bool CListFindBar::IsEverywhere() const {
    return m_everywhere->isChecked();
}

void CListFindBar::SetEverywhere(bool isEverywhere) {
    m_everywhere->setChecked(isEverywhere);
}

void CListFindBar::ShowFound(int count) {
    const bool isEmpty = Words().trimmed().isEmpty();
    const QString number = GroupedNumber(TheRegion(), count, 0);
    const QString words = isEmpty      ? QString()
                          : count == 0 ? LoadText(Text::FindNothing)
                                       : FormatText<Text::FoundRecords>(number);
    Say(words);
}

bool CListFindBar::HasKeyboard() const {
    return isVisible() && isAncestorOf(window()->focusWidget());
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
            CFindBar::keyPressEvent(event);
    }
}
