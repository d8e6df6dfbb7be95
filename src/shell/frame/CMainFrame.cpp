#include "shell/frame/CMainFrame.h"

#include "app/CVelmarchApp.h"
#include "calendar/NumberText.h"
#include "lang/LoadText.h"
#include "shell/commands/CActions.h"
#include "shell/commands/CDefaultsMenu.h"
#include "shell/commands/CPeriodButton.h"
#include "shell/controls/CCalendarPopup.h"
#include "shell/frame/CEventPump.h"
#include "shell/frame/CFrameTray.h"
#include "shell/frame/CPanes.h"
#include "shell/frame/CProgressBox.h"
#include "shell/frame/CReportScreen.h"
#include "shell/frame/WindowMemory.h"
#include "shell/list/CConditionStrip.h"
#include "shell/list/CEmptyNote.h"
#include "shell/list/CListFindBar.h"
#include "shell/list/CRecordListView.h"
#include "shell/look/Glyphs.h"
#include "shell/look/IconTheme.h"
#include "shell/look/LegiblePalette.h"
#include "shell/report/CReportPane.h"
#include "shell/tree/CDataTreeView.h"
#include "shell/work/CWorkBar.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/NamedConditions.h"
#include "viewmodel/program/CTimerTicker.h"
#include "viewmodel/program/CViewHub.h"
#include "viewmodel/program/PeriodMemory.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize kStartSize(1000, 680);
constexpr QSize kLeastSize(480, 360);
/// A selection of at most so many records is taken up again after the list was rebuilt.
constexpr int kKeptSelection = 1000;
/// So soon after a change layout, period and order are kept, in milliseconds: not at every pixel of a drag.
constexpr int kPersistAfter = 300;
/// The menu at a node of the data tree.
constexpr int kTreeMenu[] = {Command::kTreeExpandAll, 32861, 32862, 32863, Command::kTreeColumns};

}  // namespace

/// While it lives, records are being read or changed: the cursor says to wait, and no command is offered.
class CMainFrame::BusyScope {
 public:
    explicit BusyScope(CMainFrame& frame) : m_frame(frame), m_waiting(frame.m_context.pump) {
        if (++m_frame.m_busy == 1) m_frame.UpdateActions();
    }
    ~BusyScope() {
        if (--m_frame.m_busy == 0) m_frame.UpdateActions();
    }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

 private:
    CMainFrame& m_frame;
    CWaitScope m_waiting;
};

CMainFrame::CMainFrame(const Context& context) : m_context(context) {
    setObjectName(u"mainFrame"_s);
    setWindowTitle(LoadText(Text::ProgramTitle));
    setWindowIcon(Glyphs::ProgramIcon());
    setMinimumSize(kLeastSize);
    resize(kStartSize.boundedTo(screen()->availableSize()));
    setContextMenuPolicy(Qt::NoContextMenu);
    m_toPersist.setSingleShot(true);
    m_toPersist.setInterval(kPersistAfter);
    connect(&m_toPersist, &QTimer::timeout, this, &CMainFrame::PersistWindow);
    MakePanes();
    MakeWorkBar();
    m_actions = new CActions(*this);
    MakeCommands();
    RestoreLayout();
    m_context.timers.RestoreTimers();
    RestorePeriod(m_context.app.Profile(), m_context.app.Document().CurrentFilter(),
                  m_context.app.Document().GetPeriodContext());
    Connect();
    m_context.hub.Attach(*this);
    m_context.hub.Attach(*m_status);
    ShowListOrNote();
    UpdateActions();
}

CMainFrame::~CMainFrame() {
    m_context.hub.Detach(*m_status);
    m_context.hub.Detach(*this);
}

void CMainFrame::MakePanes() {
    CVelmarchDoc& document = m_context.app.Document();
    CCfgStore& settings = m_context.app.Settings();
    m_model = new CRecordListModel(document, m_context.timers.Set(), settings, this);
    m_view = new CRecordListView(*m_model, settings, this);
    m_note = new CEmptyNote(this);
    m_pane = new QStackedWidget(this);
    m_pane->setObjectName(u"pane1"_s);
    m_pane->addWidget(m_note);
    m_pane->addWidget(m_view);
    m_report = new CReportPane(m_context.app.Profile());
    m_pane->addWidget(m_report);
    m_tree = new CDataTreeView(document, settings, m_context.prompt, this);
    m_panes = new CPanes(*m_tree, *MakeListPane(), this);
    setCentralWidget(m_panes);
    m_status = new CStatusBar(document, {.listed = ListedRecords(), .selected = SelectedRecords()}, this);
    setStatusBar(m_status);
    m_ticker = new CTimerTicker(
        m_context.timers.Set(), *m_model, [this] { return m_view->ListRowsInSight(); }, this);
    m_progress = std::make_unique<CProgressBox>(*this);
}

CStatusBar::Records CMainFrame::ListedRecords() {
    CVelmarchDoc& document = m_context.app.Document();
    return {.count =
                [this, &document] {
                    return m_view->IsFinding() ? m_view->ShownCount()
                                               : static_cast<int>(document.VisibleCount());
                },
            .each =
                [this, &document](const auto& visit) {
                    if (m_view->IsFinding())
                        m_view->ForEachFound(visit);
                    else
                        document.ForEachVisible(visit);
                }};
}

CStatusBar::Records CMainFrame::SelectedRecords() {
    return {.count = [this] { return IsListInFront() ? m_view->SelectedCount() : 0; },
            .each = [this](const auto& visit) { m_view->ForEachSelected(visit); }};
}

/// A bar of its own above the others.
void CMainFrame::MakeWorkBar() {
    m_workBar = new CWorkBar(this);
    m_workPlace = new QToolBar(LoadText(Text::WorkBarTitle), this);
    m_workPlace->setObjectName(u"workPlace"_s);
    m_workPlace->setAccessibleName(LoadText(Text::WorkBarTitle));
    m_workPlace->setContextMenuPolicy(Qt::PreventContextMenu);
    m_workPlace->toggleViewAction()->setVisible(false);
    m_workPlace->setMovable(false);
    m_workPlace->addWidget(m_workBar);
    m_workPlace->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s)
        ->setAccessibleName(LoadText(Text::WorkBarTitle));
    addToolBar(m_workPlace);
    addToolBarBreak();
}

/// The conditions of the filter and the bar of the search stand above what is in front.
QWidget* CMainFrame::MakeListPane() {
    auto* pane = new QWidget(this);
    m_conditions = new CConditionStrip(pane);
    m_findBar = new CListFindBar(pane);
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_conditions);
    column->addWidget(m_findBar);
    column->addWidget(m_pane, 1);
    pane->setFocusProxy(m_pane);
    return pane;
}

void CMainFrame::MakeCommands() {
    m_commands = std::make_unique<CFrameCommands>(MakeFrameContext());
    m_screen = std::make_unique<CReportScreen>(
        CReportScreen::Parts{*m_panes, m_actions->Bars(), *m_status, m_context.hub});
    if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
    m_tray = std::make_unique<CFrameTray>(CFrameTray::Parts{
        *this, m_commands->Work(), m_context.app.Settings(), [this] { return m_status->HoursToday(); }});
}

FrameContext CMainFrame::MakeFrameContext() {
    return {.document = m_context.app.Document(),
            .timers = m_context.timers,
            .settings = m_context.app.Settings(),
            .catalogue = m_context.app.Catalogue(),
            .prompt = m_context.prompt,
            .progress = *m_progress,
            .launcher = m_context.launcher,
            .clock = m_context.clock,
            .model = *m_model,
            .view = *m_view,
            .findBar = *m_findBar,
            .conditions = *m_conditions,
            .workBar = *m_workBar,
            .report = *m_report,
            .tree = *m_panes,
            .actions = *m_actions,
            .control = *this,
            .dialogs = m_context.dialogs,
            .home = m_context.app.Home()};
}

void CMainFrame::Connect() {
    connect(m_actions, &CActions::Triggered, this, &CMainFrame::RunCommand);
    connect(m_actions, &CActions::StateWanted, this, &CMainFrame::UpdateActions);
    connect(&m_actions->Defaults(), &CDefaultsMenu::Wanted, this,
            [this] { m_actions->Defaults().Show(m_commands->Records().DefaultNames()); });
    connect(&m_actions->Defaults(), &CDefaultsMenu::Chosen, this,
            [this](const QString& name) { m_commands->Records().NewFromDefault(name); });
    connect(m_note, &CEmptyNote::CommandWanted, this, &CMainFrame::RunCommand);
    connect(m_view, &CRecordListView::SelectionChanged, this,
            [this] { m_context.hub.NotifyViews(Hint::SelectionChanged, {}); });
    connect(m_view, &CRecordListView::EditWanted, this, [this](const QString& id) {
        if (!IsBusy()) m_commands->Records().Edit(id);
    });
    connect(m_view, &CRecordListView::ColumnResized, this, [this] { m_commands->Views().PersistLayout(); });
    connect(m_view, &CRecordListView::MenuWanted, this,
            [this](const QPoint& at) { m_actions->ContextMenu().popup(at); });
    connect(m_report, &CReportPane::StateChanged, this, &CMainFrame::UpdateActions);
    connect(m_panes, &QSplitter::splitterMoved, this, [this] { m_toPersist.start(); });
    connect(m_view->horizontalHeader(), &QHeaderView::sectionClicked, this, [this] { m_toPersist.start(); });
    connect(m_tree, &CDataTreeView::MenuWanted, this, &CMainFrame::ShowTreeMenu);
    connect(new QShortcut(QKeySequence(Qt::Key_F6), this), &QShortcut::activated, m_panes, &CPanes::NextPane);
    connect(m_ticker, &CTimerTicker::Ticked, this, [this] { m_commands->Work().Tick(); });
    CPeriodButton& period = m_actions->Bars().PeriodButton();
    connect(&period, &CPeriodButton::PresetChosen, this,
            [this](int preset) { m_commands->Period().Preset(preset); });
    connect(&period, &CPeriodButton::AllChosen, this, [this] { m_commands->Period().All(); });
    connect(&period, &CPeriodButton::DayWanted, this, [this] { PickDay(); });
    connect(&period, &CPeriodButton::RangeWanted, this, [this] { RunCommand(Command::kPeriodRange); });
}

void CMainFrame::RunCommand(int command) {
    const CommandState state = State();
    const CommandRow* row = RouteCommand(command, state);
    if (row && IsOffered(*row, state)) m_commands->Run(*row);
    UpdateActions();
}

bool CMainFrame::IsListInFront() const {
    return m_pane->currentWidget() == m_view;
}

bool CMainFrame::IsListActive() const {
    return IsListInFront() || m_pane->currentWidget() == m_note;
}

CommandState CMainFrame::State() const {
    CommandState state{.listIsActive = IsListActive(),
                       .busy = IsBusy(),
                       .selected = IsListInFront() ? m_view->SelectedCount() : 0,
                       .listed = IsListInFront() ? m_view->ShownCount() : 0,
                       .listLayout = static_cast<int>(m_model->Layout()),
                       .listGroups = m_context.app.Settings().listGroups,
                       .hasGroups = m_view->IsGrouped(),
                       .workBarShown = m_workPlace->isVisibleTo(this),
                       .bar1Shown = m_actions->Bars().Records().isVisibleTo(this),
                       .bar2Shown = m_actions->Bars().Filters().isVisibleTo(this),
                       .statusBarShown = m_status->isVisibleTo(this),
                       .reportIsActive = m_screen->IsShown()};
    m_commands->Describe(state);
    return state;
}

void CMainFrame::OnHint(Hint hint, const QStringList& ids) {
    if (hint == Hint::ReportAboutToShow) return m_commands->ShowPage();
    if (hint == Hint::Clear || hint == Hint::Rebuild) RememberPlace();
    if (hint != Hint::SelectionChanged) TellList(hint, ids);
    m_tree->OnHint(hint, ids);
    if (hint == Hint::AboutToGo) m_context.hub.NotifyViews(Hint::SelectionChanged, {});
    if (hint == Hint::Rebuild) {
        TakeUpList();
        m_commands->Find().OnRebuilt();
        if (!m_screen->IsShown()) m_commands->Filters().ShowConditions();
    }
    m_ticker->Reconsider();
    m_commands->Work().OnHint(hint);
    ShowListOrNote();
    m_commands->Find().ShowFound();
    UpdateActions();
}

/// Rows that go take the whole selection with them; that it changed is said once, however the rows went.
void CMainFrame::TellList(Hint hint, const QStringList& ids) {
    if (hint != Hint::AboutToGo) return m_model->OnHint(hint, ids);
    const QSignalBlocker quiet(m_view);
    m_model->OnHint(hint, ids);
    m_view->SelectNone();
}

void CMainFrame::TakeUpList() {
    m_view->ApplyLayout();
    for (QWidget* widget : {static_cast<QWidget*>(m_tree), static_cast<QWidget*>(m_status)})
        if (widget->font() != m_view->font()) widget->setFont(m_view->font());
    RestorePlace();
}

void CMainFrame::ReadLists() {
    m_context.app.LoadLists();
    RebuildList();
}

void CMainFrame::RebuildList() {
    RememberPlace();
    m_model->Rebuild();
    TakeUpList();
    m_ticker->Reconsider();
    m_context.hub.NotifyViews(Hint::SelectionChanged, {});
}

/// The list is rebuilt for many reasons, and the user shouldn't lose the place.
void CMainFrame::RememberPlace() {
    if (m_view->ShownCount() == 0) return;
    m_keptSelection = m_view->SelectedCount() <= kKeptSelection ? m_view->SelectedIds() : QStringList();
    m_keptCurrent = m_view->CurrentId();
}

void CMainFrame::RestorePlace() {
    if (m_keptSelection.isEmpty())
        m_view->SetCurrentId(m_keptCurrent);
    else
        m_view->SelectIds(m_keptSelection);
}

void CMainFrame::FollowList() {
    ShowListOrNote();
    UpdateActions();
    m_status->FollowList();
}

void CMainFrame::Refresh() {
    if (IsBusy()) return;
    {
        const BusyScope busy(*this);
        ShowListOrNote();
        m_context.app.LoadStep();
        m_isLoading = false;
    }
    ShowListOrNote();
}

EmptyReason CMainFrame::WhyNothing() const {
    const CVelmarchDoc& document = m_context.app.Document();
    const bool narrowed = theRecordMode == RecordMode::Time ? HasConditions(document.Filter())
                                                            : HasConditions(document.FilterOfExpenses());
    return WhyEmpty({.listed = static_cast<std::size_t>(m_view->ShownCount()),
                     .loaded = document.RecordCount(),
                     .isLoading = m_isLoading || IsBusy(),
                     .isStoreDamaged = m_context.app.Document().Store().IsDamaged(),
                     .isNarrowed = narrowed,
                     .isSearched = m_view->IsFinding(),
                     .isEverywhere = m_findBar->IsEverywhere()});
}

void CMainFrame::ShowWhyNothing() {
    const EmptyReason reason = WhyNothing();
    CVelmarchDoc& document = m_context.app.Document();
    m_note->Show(reason, theRecordMode,
                 reason == EmptyReason::Filtered ? WhatLeavesNothing(document)
                 : m_view->IsFinding()           ? m_findBar->Words()
                                                 : document.CurrentFilter().displayName);
}

void CMainFrame::ShowListOrNote() {
    const bool showsList = m_view->ShownCount() > 0;
    if (!showsList) ShowWhyNothing();
    // A report stays in front whatever happens to the records behind it.
    if (!m_screen || !m_screen->IsShown()) Front(showsList ? static_cast<QWidget&>(*m_view) : *m_note);
}

void CMainFrame::Front(QWidget& wanted) {
    m_pane->setFocusProxy(&wanted);  // for all that bring the keyboard to the pane
    if (m_pane->currentWidget() == &wanted) return;
    const bool isElsewhere = m_tree->hasFocus() || m_findBar->HasKeyboard();
    m_pane->setCurrentWidget(&wanted);
    if (!isElsewhere) wanted.setFocus();
}

void CMainFrame::ShowReport() {
    m_screen->Begin();
    m_commands->Find().Hide(true);
    m_conditions->hide();
    Front(*m_report);
    WrapBars();
    UpdateActions();
}

void CMainFrame::CloseReport() {
    if (!m_screen->IsShown()) return;
    m_screen->End();
    m_report->Clear();
    m_commands->Find().Hide(false);
    m_commands->Filters().ShowConditions();
    ShowListOrNote();
    WrapBars();
    UpdateActions();
}

/// The status bar is hidden while a report is shown, which has a line of its own for this.
void CMainFrame::Say(const QString& what) {
    constexpr int kShown = 4000;  // milliseconds: the totals stand at the same place
    if (m_screen->IsShown())
        m_report->Say(what);
    else
        m_status->showMessage(what, kShown);
}

void CMainFrame::UpdateActions() {
    m_toPersist.start();
    m_actions->Update(State());
    const PeriodFilter& filter = m_context.app.Document().CurrentFilter();
    m_actions->Bars().PeriodButton().ShowPeriod(filter.displayName, filter.preset);
}

void CMainFrame::RestoreLayout() {
    const WindowMemory memory(m_context.app.Profile());
    m_status->setVisible(memory.IsShown(Text::SectionStatusBar));
    m_workPlace->setVisible(memory.IsShown(Text::SectionWorkBar));
    m_actions->Bars().Records().setVisible(memory.IsShown(Text::SectionBar1));
    m_actions->Bars().Filters().setVisible(memory.IsShown(Text::SectionBar2));
    restoreGeometry(memory.Binary(Text::EntryGeometry));
    m_panes->restoreState(memory.Panes());
    m_panes->Stack(memory.ArePanesStacked());
    // Wanted, and no more: whoever asked for it in a narrow window may have a wide one today.
    m_panes->RestoreTreeUse({.isWanted = memory.IsShown(Text::SectionPanes), .isInsisted = false});
    m_view->ApplyLayout();
}

void CMainFrame::PersistLayout() {
    WindowMemory memory(m_context.app.Profile());
    memory.PersistShown(Text::SectionStatusBar, m_status->isVisibleTo(this));
    memory.PersistShown(Text::SectionWorkBar, m_workPlace->isVisibleTo(this));
    memory.PersistShown(Text::SectionBar2, m_actions->Bars().Filters().isVisibleTo(this));
    memory.PersistShown(Text::SectionBar1, m_actions->Bars().Records().isVisibleTo(this));
    memory.PersistBinary(Text::EntryGeometry, saveGeometry());
    memory.PersistShown(Text::SectionPanes, m_panes->IsWanted());
    memory.PersistPanes(m_panes->saveState(), m_panes->IsStacked());
    memory.PersistListStyle(m_model->Layout());
    memory.PersistView();
}

/// A program that is killed loses no more than its last moment. What a report hides is hidden for its time
/// only, so the layout waits for its end.
void CMainFrame::PersistWindow() {
    if (m_screen->IsShown() || IsBusy()) return;
    PersistLayout();
    // A search beyond the filter takes the period away for its time.
    if (!m_findBar->IsEverywhere())
        StorePeriod(m_context.app.Profile(), m_commands->Period().LastingPeriod());
    NoteMode(m_context.app.Settings());
    m_context.app.Settings().SaveValues();
}

void CMainFrame::PersistEverything() {
    m_toPersist.stop();
    CloseReport();
    m_commands->Find().End();
    m_context.timers.SaveTimers();
    PersistLayout();
    StorePeriod(m_context.app.Profile(), m_commands->Period().LastingPeriod());
    NoteMode(m_context.app.Settings());
}

void CMainFrame::ComeForward() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    QApplication::alert(this);
}

void CMainFrame::SwitchMode(RecordMode mode) {
    if (IsBusy()) return;
    {
        const BusyScope busy(*this);
        ShowListOrNote();
        m_context.app.Document().SwitchMode(mode, [this] { m_view->CaptureWidths(); });
    }
    ShowListOrNote();
    UpdateActions();
}

void CMainFrame::ShowTreeMenu(const QPoint& at) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const int command : kTreeMenu)
        if (QAction* action = m_actions->Action(command)) menu->addAction(action);
    UpdateActions();
    menu->popup(at);
}

void CMainFrame::ToggleWorkBar() {
    m_workPlace->setVisible(m_workPlace->isHidden());
}

void CMainFrame::ToggleBar1() {
    m_actions->Bars().Records().setVisible(m_actions->Bars().Records().isHidden());
    WrapBars();
}

void CMainFrame::ToggleBar2() {
    m_actions->Bars().Filters().setVisible(m_actions->Bars().Filters().isHidden());
    WrapBars();
}

void CMainFrame::ToggleStatusBar() {
    m_status->setVisible(m_status->isHidden());
}

/// The two bars share a row where both fit, else the second goes below the first, and each takes the rows it
/// needs.
void CMainFrame::WrapBars() {
    m_actions->Bars().Wrap(width());
    QToolBar &first = m_actions->Bars().Records(), &second = m_actions->Bars().Filters();
    const int needed = first.sizeHint().width() + second.sizeHint().width();
    const bool areLong =
        m_actions->Bars().RowsOf(Bar::Records) > 1 || m_actions->Bars().RowsOf(Bar::Filters) > 1;
    const bool breaks = first.isVisibleTo(this) && second.isVisibleTo(this) && (areLong || needed > width());
    if (breaks == toolBarBreak(&second)) return;
    if (breaks)
        insertToolBarBreak(&second);
    else
        removeToolBarBreak(&second);
}

void CMainFrame::PickDay() {
    CVelmarchDoc& document = m_context.app.Document();
    DateTimeVal day;
    if (!day.ParseDateText(document.CurrentFilter().startText, TheRegion(), m_context.clock))
        day.SetToday(m_context.clock);
    auto* popup = new CCalendarPopup(day, m_context.app.Settings().firstDayOfWeek, this);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setAccessibleName(LoadText(Text::DayPopup));
    const auto apply = [this](const DateTimeVal& picked) {
        m_commands->Period().Day(FormatDate(TheRegion(), picked.month, picked.day, picked.year));
    };
    connect(popup, &CCalendarPopup::Picked, this, apply);
    connect(popup, &CCalendarPopup::TodayWanted, this,
            [this] { m_commands->Period().Preset(PeriodCode::kToday); });
    const QWidget& button = m_actions->Bars().PeriodButton();
    const bool underButton = button.isVisible();
    popup->move(underButton ? button.mapToGlobal(QPoint(0, button.height()))
                            : mapToGlobal(QPoint(0, menuBar()->height())));
    popup->show();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    if (m_tray && m_tray->TakeWindow()) return event->ignore();
    // A load that is still running ends after its present record.
    m_context.pump.AskToQuit();
    event->accept();
}

/// A hidden window is no last one to close, so the program is told.
void CMainFrame::Leave() {
    const bool wasHidden = isHidden();
    if (m_tray) m_tray->LetGo();
    close();
    if (wasHidden) QApplication::quit();
}

void CMainFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !m_actions) return;
    MakePaletteLegible();
    ChooseIconTheme();
    m_actions->RefreshIcons();
    m_view->ApplyLayout();
    ShowListOrNote();
}

void CMainFrame::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (m_actions) WrapBars();
    m_toPersist.start();
}

void CMainFrame::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    m_toPersist.start();
}
