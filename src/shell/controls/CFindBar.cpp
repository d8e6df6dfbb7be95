#include "shell/controls/CFindBar.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"
#include "viewmodel/commands/MenuTable.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace {

CMnemonics BesideTheMenus() {
    CMnemonics mnemonics;
    for (const MenuRow& menu : MenuTable())
        if (menu.parent == menu.menu) static_cast<void>(mnemonics.Take(LoadText(menu.caption)));
    return mnemonics;
}

}  // namespace

CFindBar::CFindBar(const Names& names, QWidget* parent)
    : QWidget(parent),
      m_mnemonics(BesideTheMenus()),
      m_words(new QLineEdit),
      m_found(new QLabel),
      m_row(new QHBoxLayout(this)) {
    setObjectName(QString::fromLatin1(names.bar));
    m_row->setSpacing(kFormSpace);
    m_row->setContentsMargins(kFormSpace, kFormSpace / 2, kFormSpace, kFormSpace / 2);
    auto* label = new QLabel(m_mnemonics.Give(LoadText(Text::FindLabel)));
    label->setBuddy(m_words);
    m_words->setClearButtonEnabled(true);
    NameWidget(*m_words, QString::fromLatin1(names.words), LoadText(Text::FindLabel));
    NameWidget(*m_found, QString::fromLatin1(names.found), LoadText(Text::FindLabel));
    m_row->addWidget(label);
    m_row->addWidget(m_words, 1);
    m_row->addWidget(m_found);
    connect(m_words, &QLineEdit::textChanged, this, &CFindBar::WordsChanged);
    hide();
}

void CFindBar::Open() {
    show();
    m_words->setFocus(Qt::ShortcutFocusReason);
    m_words->selectAll();
}

QString CFindBar::Words() const {
    return m_words->text();
}

void CFindBar::Say(const QString& found) {
    ShowValue(*m_found, LoadText(Text::FindLabel), found);
}

bool CFindBar::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}
