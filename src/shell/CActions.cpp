#include "shell/CActions.h"

#include "lang/FormatText.h"
#include "shell/CPeriodButton.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A caption without its mnemonic, for tips and readers: "&Edit..." is "Edit".
QString Plain(const QString& caption) {
    QString plain = caption;
    plain.remove(u'&');
    if (plain.endsWith(u"..."_s)) plain.chop(3);
    return plain;
}

QList<QKeySequence> KeysOf(const CommandRow& row) {
    QList<QKeySequence> keys;
    for (const QString& text : ShortcutsOf(row)) keys.append(QKeySequence(text, QKeySequence::PortableText));
    return keys;
}

QString TipOf(const CommandRow& row) {
    const QList<QKeySequence> keys = KeysOf(row);
    const QString& tip = LoadText(row.tip);
    if (keys.isEmpty()) return tip;
    return FormatText<Text::TipWithKeys>(tip, keys.front().toString(QKeySequence::NativeText));
}

/// The menu under a button of the records bar, behind its arrow.
Menu MenuUnder(int command) {
    return command == Command::kNew                  ? Menu::New
           : command == Command::kMarkFirstAndSecond ? Menu::Mark
                                                     : Menu::Help;
}

constexpr int kContext[] = {Command::kEdit,       Command::kCopy,       Command::kDelete,
                            Command::kTimerStart, Command::kTimerPause, Command::kTimerStop};

}  // namespace

CActions::CActions(QMainWindow& window) : QObject(&window), m_window(window) {
    MakeActions();
    MakeMenus();
    MakeBars();
    MakeContextMenu();
}

void CActions::MakeActions() {
    for (const CommandRow& row : CommandTable()) m_made.push_back({&row, MakeAction(row)});
}

QAction* CActions::MakeAction(const CommandRow& row) {
    auto* action = new QAction(LoadText(row.caption), this);
    action->setObjectName(QStringLiteral("command%1.%2").arg(row.id).arg(row.argument));
    action->setIconText(Plain(LoadText(row.caption)));
    action->setToolTip(TipOf(row));
    action->setStatusTip({});
    action->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
    action->setShortcuts(KeysOf(row));
    action->setCheckable(row.check != CheckStyle::None);
    // A mark that shows the state stands where the icon would.
    action->setIconVisibleInMenu(row.check == CheckStyle::None);
    action->setMenuRole(row.id == Command::kAbout  ? QAction::AboutRole
                        : row.id == Command::kExit ? QAction::QuitRole
                                                   : QAction::NoRole);
    m_window.addAction(action);
    connect(action, &QAction::triggered, this, [this, id = row.id] { Q_EMIT Triggered(id); });
    return action;
}

void CActions::MakeMenus() {
    for (const MenuRow& row : MenuTable()) {
        auto* menu = new QMenu(LoadText(row.caption), &m_window);
        menu->setObjectName(QStringLiteral("menu%1").arg(static_cast<int>(row.menu)));
        menu->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
        m_menus[row.menu] = menu;
        if (row.parent == row.menu) m_window.menuBar()->addMenu(menu);
    }
    for (const MenuRow& row : MenuTable()) FillMenu(*m_menus[row.menu], row.menu);
}

void CActions::FillMenu(QMenu& menu, Menu which) {
    for (const Made& made : m_made) {
        if (made.row->menu != which) continue;
        if (made.row->beginsGroup) menu.addSeparator();
        menu.addAction(made.action);
        for (const MenuRow& row : MenuTable())
            if (row.parent == which && row.menu != which && row.afterCommand == made.row->id)
                menu.addMenu(m_menus[row.menu]);
    }
}

QToolBar* CActions::MakeBar(Text title, const QString& name, Bar which) {
    auto* bar = new QToolBar(LoadText(title), &m_window);
    bar->setObjectName(name);
    bar->setAccessibleName(LoadText(title));
    // Shown and hidden by their commands, which remember it.
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->toggleViewAction()->setVisible(false);
    bar->setMovable(false);
    m_window.addToolBar(bar);
    for (const Made& made : m_made)
        if (made.row->bar == which) AddButton(*bar, made);
    return bar;
}

void CActions::MakeBars() {
    m_records = MakeBar(Text::BarRecords, u"toolBar101"_s, Bar::Records);
    m_filters = MakeBar(Text::BarFilters, u"toolBar102"_s, Bar::Filters);
    m_period = new CPeriodButton(m_filters);
    m_filters->insertWidget(Action(Command::kPeriodNext), m_period);
}

void CActions::AddButton(QToolBar& bar, const Made& made) {
    if (made.row->id == Command::kMarkFirstAndSecond || made.row->id == Command::kTimerStart ||
        made.row->id == Command::kClearFilter)
        bar.addSeparator();
    bar.addAction(made.action);
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(made.action));
    button->setObjectName(QStringLiteral("button%1").arg(made.row->id));
    button->setAccessibleName(made.action->iconText());
    if (const Menu under = MenuUnder(made.row->id); under != Menu::Help) {
        button->setMenu(m_menus[under]);
        button->setPopupMode(QToolButton::MenuButtonPopup);
    }
}

void CActions::MakeContextMenu() {
    m_context = new QMenu(&m_window);
    m_context->setObjectName(u"contextMenu"_s);
    m_context->addAction(Action(Command::kNew));
    m_context->addMenu(m_menus[Menu::New]);
    m_context->addSeparator();
    for (const int command : kContext) {
        if (command == Command::kTimerStart) m_context->addMenu(m_menus[Menu::Mark]);
        if (command == Command::kTimerStart) m_context->addSeparator();
        m_context->addAction(Action(command));
    }
}

QAction* CActions::Action(int command) const {
    for (const Made& made : m_made)
        if (made.row->id == command) return made.action;
    return nullptr;
}

/// What a number does depends on who takes it, so the state is that of the row that would carry it out.
void CActions::Update(const CommandState& state) {
    for (const Made& made : m_made) {
        const CommandRow* row = RouteCommand(made.row->id, state);
        made.action->setEnabled(IsOffered(*row, state));
        if (made.action->isCheckable()) made.action->setChecked(IsChecked(*row, state));
    }
    m_menus[Menu::Mark]->setEnabled(state.selected > 0 && !state.busy);
    m_menus[Menu::New]->setEnabled(!state.busy);
    m_period->setEnabled(!state.busy);
}

void CActions::RefreshIcons() {
    for (const Made& made : m_made)
        made.action->setIcon(QIcon::fromTheme(QString::fromLatin1(made.row->icon)));
    for (const MenuRow& row : MenuTable())
        m_menus[row.menu]->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
    m_period->setIcon(QIcon::fromTheme(u"view-calendar"_s));
}
