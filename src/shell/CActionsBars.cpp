#include "lang/LoadText.h"
#include "shell/CActions.h"
#include "shell/CPeriodButton.h"
#include "shell/core/BarButtons.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QThread>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The period stands between the buttons of the former and the next one, as far as they are there.
qsizetype PlaceOfPeriod(const QList<int>& buttons) {
    const qsizetype next = buttons.indexOf(Command::kPeriodNext);
    return next >= 0 ? next : buttons.indexOf(Command::kPeriodPrevious) + 1;
}

/// Dividing lines are the bar's own; commands and the period stay for the next time. The bar leaves its
/// buttons to the event loop, as one of them may have called for this; buttons given up before that loop runs
/// would stay hidden in the bar until the program ends, and screen readers would find each command twice.
void Clear(QToolBar& bar) {
    const bool isAtStart = QThread::currentThread()->loopLevel() == 0;
    for (QAction* action : bar.actions()) {
        QWidget* button = bar.widgetForAction(action);
        const bool isOurs = qobject_cast<CPeriodButton*>(button);
        bar.removeAction(action);
        if (action->isSeparator()) delete action;
        if (isAtStart && !isOurs) delete button;
    }
}

}  // namespace

QToolBar* CActions::MakeBar(Text title, const QString& name) {
    auto* bar = new QToolBar(LoadText(title), &m_window);
    bar->setObjectName(name);
    bar->setAccessibleName(LoadText(title));
    // Shown and hidden by their commands, which remember it.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->toggleViewAction()->setVisible(false);
    bar->setMovable(false);
    // The arrow for what doesn't fit has no words of its own.
    bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s)->setAccessibleName(LoadText(title));
    m_window.addToolBar(bar);
    return bar;
}

void CActions::MakeBars() {
    m_records = MakeBar(Text::BarRecords, u"toolBar101"_s);
    m_filters = MakeBar(Text::BarFilters, u"toolBar102"_s);
    m_period = new CPeriodButton(m_filters);
    m_periodPlace = m_filters->addWidget(m_period);
    for (const Bar bar : {Bar::Records, Bar::Filters}) SetButtons(bar, FactoryButtons(bar));
}

void CActions::SetButtons(Bar which, const QList<int>& buttons) {
    QToolBar& bar = which == Bar::Records ? *m_records : *m_filters;
    m_buttons[which] = buttons;
    Clear(bar);
    const qsizetype placeOfPeriod = which == Bar::Filters ? PlaceOfPeriod(buttons) : -1;
    for (qsizetype place = 0; place < buttons.size(); ++place) {
        if (place == placeOfPeriod) bar.addAction(m_periodPlace);
        if (buttons[place] == kDivider)
            bar.addSeparator();
        else
            AddButton(bar, buttons[place]);
    }
    if (placeOfPeriod == buttons.size()) bar.addAction(m_periodPlace);
    NameButtons();
}

void CActions::AddButton(QToolBar& bar, int command) {
    QAction* action = Action(command);
    if (!action) return;
    bar.addAction(action);
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
    button->setObjectName(QStringLiteral("button%1").arg(command));
    if (const Menu under = MenuUnderButton(command); under != Menu::Help) {
        button->setMenu(m_menus[under]);
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
}

void CActions::NameButtons() {
    for (const QToolBar* bar : {m_records, m_filters})
        for (const Made& made : m_made)
            if (QWidget* button = bar->widgetForAction(made.action))
                button->setAccessibleName(Words(*made.row).tip);
}
