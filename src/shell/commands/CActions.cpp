#include "shell/commands/CActions.h"

#include "app/FieldLabels.h"
#include "lang/FormatText.h"
#include "shell/commands/CDefaultsMenu.h"
#include "shell/commands/CPeriodButton.h"
#include "shell/commands/CommandIcon.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/PlainTip.h"
#include "viewmodel/commands/BarButtons.h"
#include "viewmodel/commands/MenuTable.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::Literals::StringLiterals;

namespace {

QList<QKeySequence> KeysOf(const CommandRow& row) {
    QList<QKeySequence> keys;
    for (const QString& text : ShortcutsOf(row)) keys.append(QKeySequence(text, QKeySequence::PortableText));
    return keys;
}

QString TipOf(const CommandRow& row, const QString& tip) {
    const QList<QKeySequence> keys = KeysOf(row);
    if (keys.isEmpty()) return tip;
    return FormatText<Text::TipWithKeys>(tip, keys.front().toString(QKeySequence::NativeText));
}

const FieldLabels& DefaultLabels() {
    static const FieldLabels kLabels;
    return kLabels;
}

constexpr int kContext[] = {Command::kEdit,       Command::kCopy,       Command::kDelete,
                            Command::kTimerStart, Command::kTimerPause, Command::kTimerStop};

}  // namespace

CActions::CActions(QMainWindow& window) : QObject(&window), m_window(window), m_labels(&DefaultLabels()) {
    MakeActions();
    MakeMenus();
    m_bars = std::make_unique<CCommandBars>(m_window, [this](int command) { return ButtonOf(command); });
    MakeContextMenu();
    m_defaults = new CDefaultsMenu(*m_menus[Menu::New], *Action(Command::kNewFromDefault));
    ShowNames(true);
}

void CActions::MakeActions() {
    for (const CommandRow& row : CommandTable()) m_made.push_back({&row, MakeAction(row)});
    GroupChoices();
}

/// Of commands of which one holds at a time, each is shown as a choice and not as a switch. "Last year",
/// whose check may be that of the layout with its number, stays by itself.
void CActions::GroupChoices() {
    std::map<int, QActionGroup*> groups;
    for (const Made& made : m_made) {
        if (made.row->check != CheckStyle::Radio) continue;
        const bool isPeriod = made.row->run == Run::PeriodAll || made.row->run == Run::PeriodDay ||
                              made.row->run == Run::PeriodRange || made.row->run == Run::PeriodPreset;
        if (isPeriod && made.row->id == Command::kLayoutIcons) continue;
        QActionGroup*& group = groups[static_cast<int>(isPeriod ? Run::PeriodPreset : made.row->run)];
        if (!group) group = new QActionGroup(this);
        group->addAction(made.action);
    }
}

QAction* CActions::MakeAction(const CommandRow& row) {
    auto* action = new QAction(this);
    action->setObjectName(QStringLiteral("command%1.%2").arg(row.id).arg(row.argument));
    action->setIcon(CommandIcon(row));
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
        connect(menu, &QMenu::aboutToShow, this, &CActions::StateWanted);
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
        for (const MenuRow& row : MenuTable()) {
            if (row.parent != which || row.menu == which || row.afterCommand != made.row->id) continue;
            if (row.beginsGroup) menu.addSeparator();
            menu.addMenu(m_menus[row.menu]);
        }
    }
}

void CActions::MakeContextMenu() {
    m_context = new QMenu(&m_window);
    m_context->setObjectName(u"contextMenu"_s);
    connect(m_context, &QMenu::aboutToShow, this, &CActions::StateWanted);
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

CCommandBars::Button CActions::ButtonOf(int command) const {
    QAction* action = Action(command);
    if (!action) return {};
    const Menu under = MenuUnderButton(command);
    return {.action = action,
            .menu = under == Menu::Help ? nullptr : m_menus.at(under),
            .name = Words(*FindCommand(command)).tip};
}

void CActions::ShowNamesOf(const FieldLabels& labels) {
    m_labels = &labels;
    m_shownNames.clear();
}

/// What a number does depends on who takes it, so the state is that of the row that would carry it out.
void CActions::Update(const CommandState& state) {
    ShowNames(state.timeMode);
    for (const Made& made : m_made) {
        const CommandRow* row = RouteCommand(made.row->id, state);
        made.action->setEnabled(IsOffered(*row, state));
        if (made.action->isCheckable()) made.action->setChecked(IsChecked(*row, state));
    }
    ShowHistory(state);
    m_menus[Menu::Mark]->setEnabled(state.selected > 0 && !state.busy);
    m_menus[Menu::New]->setEnabled(!state.busy);
    m_bars->PeriodButton().setEnabled(!state.busy);
    m_bars->SetMode(state.timeMode);
}

/// What would be undone stands in the menu.
void CActions::ShowHistory(const CommandState& state) {
    const auto marked = [](QString name) { return name.replace(u'&', u"&&"_s); };
    Action(Command::kUndo)
        ->setText(state.undo.isEmpty() ? LoadText(Text::CmdUndo)
                                       : FormatText<Text::UndoNamed>(marked(state.undo)));
    Action(Command::kRedo)
        ->setText(state.redo.isEmpty() ? LoadText(Text::CmdRedo)
                                       : FormatText<Text::RedoNamed>(marked(state.redo)));
}

void CActions::ShowNames(bool timeMode) {
    QStringList names;
    for (const FieldNameRow& row : FieldNameTable())
        names << m_labels->GetLabel(NumberOf(timeMode ? row.timeField : row.expenseField));
    if (names == m_shownNames) return;
    m_shownNames = names;
    m_timeMode = timeMode;
    for (const Made& made : m_made) ShowWords(made);
    for (const MenuRow& row : MenuTable()) GiveMnemonics(row.menu);
    m_bars->NameButtons();
}

CommandWords CActions::Words(const CommandRow& row) const {
    return WordsOf(row, m_timeMode, *m_labels);
}

void CActions::ShowWords(const Made& made) {
    const CommandWords words = Words(*made.row);
    const std::optional<Text> onBar = WordOnBar(made.row->id);
    made.action->setIconText(onBar ? LoadText(*onBar) : words.name);
    made.action->setToolTip(PlainTip(TipOf(*made.row, words.tip)));
    made.action->setStatusTip(words.status);
}

/// The letters marked in the library stay; what has none, or is called by the user, takes one that is free.
void CActions::GiveMnemonics(Menu which) {
    CMnemonics letters;
    std::vector<std::pair<QAction*, QString>> open;
    for (const Made& made : m_made) {
        if (made.row->menu != which) continue;
        const CommandWords words = Words(*made.row);
        const QString& caption = LoadText(made.row->caption);
        if (words.isFieldName)
            open.emplace_back(made.action, words.name);
        else if (!caption.contains(u'&'))
            open.emplace_back(made.action, caption);
        else
            made.action->setText(letters.Take(caption));
    }
    for (const MenuRow& row : MenuTable())
        if (row.parent == which && row.menu != which) static_cast<void>(letters.Take(LoadText(row.caption)));
    for (const auto& [action, name] : open) action->setText(letters.Give(name));
}

void CActions::RefreshIcons() {
    for (const Made& made : m_made) made.action->setIcon(CommandIcon(*made.row));
    for (const MenuRow& row : MenuTable())
        m_menus[row.menu]->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
    m_bars->PeriodButton().setIcon(QIcon::fromTheme(u"view-calendar"_s));
}
