#include "viewmodel/commands/CommandTable.h"

#include "app/RecordMode.h"
#include "entry/QuickEntry.h"
#include "entry/RecordMarks.h"
#include "viewmodel/commands/CommandRowMaker.h"
#include "viewmodel/commands/ReportCommands.h"
#include "viewmodel/commands/ViewCommands.h"
#include "viewmodel/commands/WorkCommands.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using State = CommandState;
using Row = CommandRowMaker;

bool OneSelected(const State& s) {
    return s.selected == 1;
}
bool AnySelected(const State& s) {
    return s.selected >= 1;
}
bool AnyListed(const State& s) {
    return s.listIsActive && s.listed > 0;
}
bool ListActive(const State& s) {
    return s.listIsActive;
}
bool Finding(const State& s) {
    return s.listIsActive && s.isFinding;
}
bool FindsEverywhere(const State& s) {
    return s.findsEverywhere;
}
bool InTimeMode(const State& s) {
    return s.timeMode;
}
bool InExpenseMode(const State& s) {
    return !s.timeMode;
}
bool ExpensesSelected(const State& s) {
    return !s.timeMode && s.selected >= 1;
}
bool OneTimeSelected(const State& s) {
    return s.timeMode && s.selected == 1;
}
bool TimesSelected(const State& s) {
    return s.timeMode && s.listIsActive && s.selected >= 1;
}
bool TimersSelected(const State& s) {
    return TimesSelected(s) && s.selectedHasTimer;
}
bool RunningSelected(const State& s) {
    return TimesSelected(s) && s.selectedRuns;
}
bool TimeModeWithTimer(const State& s) {
    return s.timeMode && s.anyTimer;
}
bool TimersToFilter(const State& s) {
    return TimeModeWithTimer(s) || s.timersAlone;
}
bool TimersAlone(const State& s) {
    return s.timersAlone;
}
bool TimeModeWithRunning(const State& s) {
    return s.timeMode && s.anyRunning;
}
bool CanStep(const State& s) {
    return s.canStep;
}
bool NodeSelected(const State& s) {
    return s.treeHasNode;
}
bool NodeInTimeMode(const State& s) {
    return NodeSelected(s) && s.timeMode;
}
bool HasRegionalSettings(const State& s) {
    return s.hasRegionalSettings;
}
bool UsesDependencies(const State& s) {
    return s.useDependencies;
}
bool CanUndo(const State& s) {
    return !s.undo.isEmpty();
}
bool CanRedo(const State& s) {
    return !s.redo.isEmpty();
}
template <int FilterCommand>
bool FilterIsSet(const State& s) {
    return s.filters.contains(FilterCommand);
}
template <int Preset>
bool PresetIs(const State& s) {
    return s.preset == Preset;
}
template <int Layout>
bool LayoutIs(const State& s) {
    return s.listLayout == Layout;
}

template <RecordMark Mark>
constexpr int kMark = static_cast<int>(Mark);

/// The commands of the menus before that of reports.
constexpr CommandRow kFirstCommands[] = {
    Row(Command::kNew, "CmdQuickEntry", {Text::CmdNew, Text::TipNew, "document-new", "Ctrl+N"}, Menu::Record,
        {Run::QuickEntry, QuickFlag::kBlank}),
    Row(Command::kNewPlain, "CmdNewRecord", {Text::CmdNew, Text::TipNew, "document-new"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kBlank}),
    Row(Command::kNewStampTimer, "CmdQuickEntry",
        {Text::CmdNewStampTimer, Text::TipNewStampTimer, "chronometer-start", "Ctrl+T"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kTimestamp | QuickFlag::kTimer})
        .When(InTimeMode),
    Row(32852, "CmdQuickEntry", {Text::CmdNewStamp, Text::TipNewStamp, "appointment-new", "Ctrl+Shift+T"},
        Menu::New, {Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kTimestamp}),
    Row(32854, "CmdQuickEntry", {Text::CmdNewNext, Text::TipNewNext, "list-add", "Ctrl+Shift+N"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kSuccessive})
        .When(OneTimeSelected),
    Row(32855, "CmdQuickEntry", {Text::CmdNewNextTimer, Text::TipNewNextTimer, "chronometer-lap"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kSuccessive | QuickFlag::kTimer})
        .When(OneTimeSelected),
    Row(Command::kNewFromDefault, "CmdQuickEntry",
        {Text::CmdDefaultsNew, Text::TipDefaultsNew, "document-new-from-template"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kDefaults})
        .BeginsGroup(),
    Row(32857, "CmdQuickEntry", {Text::CmdDefaultsStamp, Text::TipDefaultsStamp, "bookmark-new"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kTimestamp}),
    Row(32858, "CmdQuickEntry", {Text::CmdDefaultsStampTimer, Text::TipDefaultsStampTimer, "bookmark-new"},
        Menu::New, {Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kTimestamp | QuickFlag::kTimer})
        .When(InTimeMode),
    Row(32859, "CmdQuickEntry", {Text::CmdDefaultsNext, Text::TipDefaultsNext, "bookmarks"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kSuccessive})
        .When(OneTimeSelected),
    Row(32860, "CmdQuickEntry", {Text::CmdDefaultsNextTimer, Text::TipDefaultsNextTimer, "bookmarks"},
        Menu::New, {Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kSuccessive | QuickFlag::kTimer})
        .When(OneTimeSelected),
    Row(32861, "CmdQuickEntry", {Text::CmdTreeNew, Text::TipTreeNew, "node-add"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kTree})
        .BeginsGroup()
        .When(NodeSelected),
    Row(32862, "CmdQuickEntry", {Text::CmdTreeStamp, Text::TipTreeStamp, "node-add"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kTree | QuickFlag::kTimestamp})
        .When(NodeSelected),
    Row(32863, "CmdQuickEntry", {Text::CmdTreeStampTimer, Text::TipTreeStampTimer, "node-add"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kTree | QuickFlag::kTimestamp | QuickFlag::kTimer})
        .When(NodeInTimeMode),
    Row(32864, "CmdQuickEntry", {Text::CmdCopyStamp, Text::TipCopyStamp, "edit-duplicate"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kTimestamp})
        .BeginsGroup()
        .When(OneSelected),
    Row(32865, "CmdQuickEntry", {Text::CmdCopyStampTimer, Text::TipCopyStampTimer, "edit-duplicate"},
        Menu::New, {Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kTimestamp | QuickFlag::kTimer})
        .When(OneTimeSelected),
    Row(32866, "CmdQuickEntry", {Text::CmdCopyNext, Text::TipCopyNext, "edit-paste"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kSuccessive})
        .When(OneTimeSelected),
    Row(32867, "CmdQuickEntry", {Text::CmdCopyNextTimer, Text::TipCopyNextTimer, "edit-paste"}, Menu::New,
        {Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kSuccessive | QuickFlag::kTimer})
        .When(OneTimeSelected),
    Row(Command::kEdit, "CmdEditRecord", {Text::CmdEdit, Text::TipEdit, "document-edit", "Return Enter F2"},
        Menu::Record, {Run::EditRecord})
        .BeginsGroup()
        .When(OneSelected),
    Row(Command::kCopy, "CmdCopyRecords", {Text::CmdCopy, Text::TipCopy, "edit-copy", "Ctrl+D"}, Menu::Record,
        {Run::CopyRecords})
        .When(AnySelected),
    Row(Command::kDelete, "CmdDeleteRecords", {Text::CmdDelete, Text::TipDelete, "edit-delete", "Del"},
        Menu::Record, {Run::DeleteRecords})
        .When(AnySelected),
    Row(Command::kMarkFirst, "CmdMarkFirst", {Text::CmdMarkFirst, Text::TipMarkFirst, "flag-green", "Ctrl+M"},
        Menu::Mark, {Run::Mark, kMark<RecordMark::First>})
        .When(AnySelected),
    Row(Command::kMarkFirstAndSecond, "CmdMarkFirstAndSecond",
        {Text::CmdMarkFirstSecond, Text::TipMarkFirstSecond, "flag-blue"}, Menu::Mark,
        {Run::Mark, kMark<RecordMark::FirstAndSecond>})
        .When(AnySelected),
    Row(32839, "CmdMarkThird", {Text::CmdMarkThird, Text::TipMarkThird, "flag-red"}, Menu::Mark,
        {Run::Mark, kMark<RecordMark::Third>})
        .When(ExpensesSelected),
    Row(40058, "CmdMarkThirdAndFourth", {Text::CmdMarkThirdFourth, Text::TipMarkThirdFourth, "flag-yellow"},
        Menu::Mark, {Run::Mark, kMark<RecordMark::ThirdAndFourth>})
        .When(ExpensesSelected),
    Row(32840, "CmdMarkFifth", {Text::CmdMarkFifth, Text::TipMarkFifth, "user"}, Menu::Mark,
        {Run::Mark, kMark<RecordMark::Fifth>})
        .When(ExpensesSelected),
    Row(32841, "CmdMarkExported", {Text::CmdMarkExported, Text::TipMarkExported, "document-export"},
        Menu::Mark, {Run::Mark, kMark<RecordMark::Exported>})
        .BeginsGroup()
        .When(AnySelected),
    Row(32842, "CmdClearExported", {Text::CmdClearExported, Text::TipClearExported, "edit-clear"}, Menu::Mark,
        {Run::Mark, kMark<RecordMark::NotExported>})
        .When(AnySelected),
    Row(Command::kUndo, "CmdUndo", {Text::CmdUndo, Text::TipUndo, "edit-undo", "Ctrl+Z"}, Menu::Record,
        {Run::Undo})
        .BeginsGroup()
        .When(CanUndo),
    Row(Command::kRedo, "CmdRedo", {Text::CmdRedo, Text::TipRedo, "edit-redo", "Ctrl+Shift+Z"}, Menu::Record,
        {Run::Redo})
        .When(CanRedo),
    Row(Command::kSelectAll, "CmdSelectAll",
        {Text::CmdSelectAll, Text::TipSelectAll, "edit-select-all", "Ctrl+A"}, Menu::Record, {Run::SelectAll})
        .OfView()
        .BeginsGroup()
        .When(AnyListed),
    Row(Command::kSelectNone, "CmdSelectNone",
        {Text::CmdSelectNone, Text::TipSelectNone, "edit-select-none", "Ctrl+Shift+A"}, Menu::Record,
        {Run::SelectNone})
        .OfView()
        .When(AnySelected),
    Row(Command::kFind, "CmdFind", {Text::CmdFind, Text::TipFind, "edit-find", "Ctrl+F"}, Menu::Record,
        {Run::Find})
        .BeginsGroup()
        .When(ListActive),
    Row(Command::kFindEverywhere, "CmdFindEverywhere",
        {Text::CmdFindEverywhere, Text::TipFindEverywhere, "edit-find-replace"}, Menu::Record,
        {Run::FindEverywhere})
        .When(Finding)
        .Toggle(FindsEverywhere),
    Row(Command::kExit, "CmdExit", {Text::CmdExit, Text::TipExit, "application-exit", "Ctrl+Q"}, Menu::Record,
        {Run::Exit})
        .BeginsGroup(),
    Row(Command::kTimeMode, "CmdTimeMode", {Text::CmdTimeMode, Text::TipTimeMode, "clock", "Ctrl+1"},
        Menu::View, {Run::SwitchMode, static_cast<int>(RecordMode::Time)})
        .Radio(InTimeMode),
    Row(Command::kExpenseMode, "CmdExpenseMode",
        {Text::CmdExpenseMode, Text::TipExpenseMode, "wallet-open", "Ctrl+2"}, Menu::View,
        {Run::SwitchMode, static_cast<int>(RecordMode::Expense)})
        .Radio(InExpenseMode),
    Row(Command::kLayoutIcons, "CmdLayout", {Text::CmdLayoutIcons, Text::TipLayoutIcons, "view-list-icons"},
        Menu::View, {Run::Layout, 1})
        .OfView()
        .BeginsGroup()
        .Radio(LayoutIs<1>),
    Row(Command::kLayoutList, "CmdLayout", {Text::CmdLayoutList, Text::TipLayoutList, "view-list-text"},
        Menu::View, {Run::Layout, 2})
        .OfView()
        .Radio(LayoutIs<2>),
    Row(Command::kLayoutColumns, "CmdLayout",
        {Text::CmdLayoutColumns, Text::TipLayoutColumns, "view-list-details"}, Menu::View, {Run::Layout, 3})
        .OfView()
        .Radio(LayoutIs<3>),
    Row(Command::kLayoutLines, "CmdLayout", {Text::CmdLayoutLines, Text::TipLayoutLines, "view-list-tree"},
        Menu::View, {Run::Layout, 4})
        .OfView()
        .Radio(LayoutIs<4>),
    Row(Command::kSort, "CmdSortDialog", {Text::CmdSort, Text::TipSort, "view-sort"}, Menu::View, {Run::Sort})
        .OfView()
        .BeginsGroup(),
    Row(Command::kListColumns, "CmdListColumns",
        {Text::CmdListColumns, Text::TipListColumns, "object-columns"}, Menu::View, {Run::ListColumns}),
    Row(Command::kFitColumns, "CmdFitColumns", {Text::CmdFitColumns, Text::TipFitColumns, "resizecol"},
        Menu::View, {Run::FitColumns})
        .OfView()
        .When(LayoutIs<3>),
    Row(Command::kRestoreColumns, "CmdRestoreColumns",
        {Text::CmdRestoreColumns, Text::TipRestoreColumns, "edit-reset"}, Menu::View, {Run::RestoreColumns})
        .OfView(),
    Row(Command::kListFont, "CmdListFont", {Text::CmdListFont, Text::TipListFont, "preferences-desktop-font"},
        Menu::View, {Run::ListFont}),
    Row(Command::kRefresh, "CmdRefresh", {Text::CmdRefresh, Text::TipRefresh, "view-refresh", "F5"},
        Menu::View, {Run::Refresh})
        .BeginsGroup(),
    Row(Command::kRebuildViews, "CmdRebuildViews",
        {Text::CmdRebuildViews, Text::TipRebuildViews, "view-refresh", "Shift+F5"}, Menu::View,
        {Run::RebuildViews})
        .OfView(),
    Row(Command::kPeriodPrevious, "CmdPeriodPrevious",
        {Text::CmdPeriodPrevious, Text::TipPeriodPrevious, "go-previous", "Alt+Left"}, Menu::Period,
        {Run::PeriodPrevious})
        .When(CanStep),
    Row(Command::kPeriodNext, "CmdPeriodNext",
        {Text::CmdPeriodNext, Text::TipPeriodNext, "go-next", "Alt+Right"}, Menu::Period, {Run::PeriodNext})
        .When(CanStep),
    Row(Command::kPeriodAll, "CmdPeriodAll", {Text::PeriodAll, Text::TipPeriod, "view-calendar"},
        Menu::Period, {Run::PeriodAll})
        .BeginsGroup()
        .Radio(PresetIs<PeriodCode::kAll>),
    Row(Command::kPeriodToday, "CmdPeriod1",
        {Text::PeriodToday, Text::TipPeriod, "view-calendar-day", "Alt+Home"}, Menu::Period,
        {Run::PeriodPreset, 1})
        .Radio(PresetIs<1>),
    Row(32789, "CmdPeriodPreset", {Text::PeriodYesterday, Text::TipPeriod, "view-calendar-day"}, Menu::Period,
        {Run::PeriodPreset, 16})
        .Radio(PresetIs<16>),
    Row(Command::kPeriodDay, "CmdPeriodDay", {Text::CmdPeriodDay, Text::TipPeriodDay, "view-calendar-day"},
        Menu::Period, {Run::PeriodDay})
        .Radio(PresetIs<PeriodCode::kSingleDate>),
    Row(Command::kPeriodRange, "CmdPeriodRange",
        {Text::CmdPeriodRange, Text::TipPeriodRange, "view-calendar-timeline"}, Menu::Period,
        {Run::PeriodRange})
        .Radio(PresetIs<PeriodCode::kRange>),
    Row(32799, "CmdPeriod2", {Text::PeriodThisWeek, Text::TipPeriod, "view-calendar-week"}, Menu::PeriodWeeks,
        {Run::PeriodPreset, 2})
        .Radio(PresetIs<2>),
    Row(32800, "CmdPeriod3", {Text::PeriodTwoWeeks, Text::TipPeriod, "view-calendar-week"}, Menu::PeriodWeeks,
        {Run::PeriodPreset, 3})
        .Radio(PresetIs<3>),
    Row(32790, "CmdPeriodPreset", {Text::PeriodWeekToDate, Text::TipPeriod, "view-calendar-week"},
        Menu::PeriodWeeks, {Run::PeriodPreset, 10})
        .Radio(PresetIs<10>),
    Row(32796, "CmdPeriodPreset", {Text::PeriodLastWeek, Text::TipPeriod, "view-calendar-week"},
        Menu::PeriodWeeks, {Run::PeriodPreset, 17})
        .Radio(PresetIs<17>),
    Row(32797, "CmdPeriodPreset", {Text::PeriodLastWeekToDate, Text::TipPeriod, "view-calendar-week"},
        Menu::PeriodWeeks, {Run::PeriodPreset, 18})
        .Radio(PresetIs<18>),
    Row(32843, "CmdPeriodPreset", {Text::PeriodNextWeek, Text::TipPeriod, "view-calendar-week"},
        Menu::PeriodWeeks, {Run::PeriodPreset, 25})
        .Radio(PresetIs<25>),
    Row(32847, "CmdPeriodPreset", {Text::PeriodNextFourWeeks, Text::TipPeriod, "view-calendar-week"},
        Menu::PeriodWeeks, {Run::PeriodPreset, 26})
        .Radio(PresetIs<26>),
    Row(32801, "CmdPeriod4", {Text::PeriodThisMonth, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodMonths, {Run::PeriodPreset, 4})
        .Radio(PresetIs<4>),
    Row(32791, "CmdPeriodPreset", {Text::PeriodMonthToDate, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodMonths, {Run::PeriodPreset, 11})
        .Radio(PresetIs<11>),
    Row(32811, "CmdPeriodPreset", {Text::PeriodLastMonth, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodMonths, {Run::PeriodPreset, 19})
        .Radio(PresetIs<19>),
    Row(32819, "CmdPeriodPreset", {Text::PeriodLastMonthToDate, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodMonths, {Run::PeriodPreset, 20})
        .Radio(PresetIs<20>),
    Row(32848, "CmdPeriodPreset", {Text::PeriodNextMonth, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodMonths, {Run::PeriodPreset, 27})
        .Radio(PresetIs<27>),
    Row(32792, "CmdPeriodPreset", {Text::PeriodThisQuarter, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodQuarters, {Run::PeriodPreset, 12})
        .Radio(PresetIs<12>),
    Row(32793, "CmdPeriodPreset", {Text::PeriodQuarterToDate, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodQuarters, {Run::PeriodPreset, 13})
        .Radio(PresetIs<13>),
    Row(32820, "CmdPeriodPreset", {Text::PeriodLastQuarter, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodQuarters, {Run::PeriodPreset, 21})
        .Radio(PresetIs<21>),
    Row(32822, "CmdPeriodPreset", {Text::PeriodLastQuarterToDate, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodQuarters, {Run::PeriodPreset, 22})
        .Radio(PresetIs<22>),
    Row(32849, "CmdPeriodPreset", {Text::PeriodNextQuarter, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodQuarters, {Run::PeriodPreset, 28})
        .Radio(PresetIs<28>),
    Row(32794, "CmdPeriodPreset", {Text::PeriodThisYear, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodYears, {Run::PeriodPreset, 14})
        .Radio(PresetIs<14>),
    Row(32795, "CmdPeriodPreset", {Text::PeriodYearToDate, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodYears, {Run::PeriodPreset, 15})
        .Radio(PresetIs<15>),
    Row(Command::kLayoutIcons, "CmdPeriodPreset",
        {Text::PeriodLastYear, Text::TipPeriod, "view-calendar-month"}, Menu::PeriodYears,
        {Run::PeriodPreset, 23})
        .Radio(PresetIs<23>),
    Row(32824, "CmdPeriodPreset", {Text::PeriodLastYearToDate, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodYears, {Run::PeriodPreset, 24})
        .Radio(PresetIs<24>),
    Row(32850, "CmdPeriodPreset", {Text::PeriodNextYear, Text::TipPeriod, "view-calendar-month"},
        Menu::PeriodYears, {Run::PeriodPreset, 29})
        .Radio(PresetIs<29>),
    Row(Command::kFilterDialog, "CmdFilterDialog",
        {Text::CmdFilterDialog, Text::TipFilterDialog, "view-filter", "Ctrl+L"}, Menu::Filter,
        {Run::FilterDialog}),
    Row(Command::kClearFilter, "CmdClearFilter",
        {Text::CmdClearFilter, Text::TipClearFilter, "edit-clear-all", "Ctrl+Shift+L"}, Menu::Filter,
        {Run::ClearFilter}),
    Row(Command::kFilterTimers, "CmdFilterTimers",
        {Text::CmdFilterTimers, Text::TipFilterTimers, "chronometer"}, Menu::Filter, {Run::FilterTimers})
        .When(TimersToFilter)
        .Toggle(TimersAlone),
    Row(32804, "CmdFilterList1", {Text::FieldClient, Text::TipFilterText, "user"}, Menu::Filter,
        {Run::FilterBy, 32804})
        .BeginsGroup()
        .Toggle(FilterIsSet<32804>),
    Row(32805, "CmdFilterList2", {Text::FieldProject, Text::TipFilterText, "project-development"},
        Menu::Filter, {Run::FilterBy, 32805})
        .Toggle(FilterIsSet<32805>),
    Row(32806, "CmdFilterList3", {Text::LabelTimeItem3, Text::TipFilterText, "view-task"}, Menu::Filter,
        {Run::FilterBy, 32806})
        .When(InTimeMode)
        .Toggle(FilterIsSet<32806>),
    Row(32807, "CmdFilterList4", {Text::FieldCostCentre, Text::TipFilterText, "view-bank"}, Menu::Filter,
        {Run::FilterBy, 32807})
        .When(InTimeMode)
        .Toggle(FilterIsSet<32807>),
    Row(32808, "CmdFilterList5", {Text::LabelDescription, Text::TipFilterText, "view-financial-category"},
        Menu::Filter, {Run::FilterBy, 32808})
        .When(InExpenseMode)
        .Toggle(FilterIsSet<32808>),
    Row(32809, "CmdFilterList6", {Text::FieldExpenseItem4, Text::TipFilterText, "view-financial-list"},
        Menu::Filter, {Run::FilterBy, 32809})
        .When(InExpenseMode)
        .Toggle(FilterIsSet<32809>),
    Row(32832, "CmdFilterFlag1", {Text::FieldBillable, Text::TipFilterFlag, "flag-green"}, Menu::Filter,
        {Run::FilterBy, 32832})
        .BeginsGroup()
        .Toggle(FilterIsSet<32832>),
    Row(32833, "CmdFilterFlag2", {Text::FieldBilled, Text::TipFilterFlag, "flag-blue"}, Menu::Filter,
        {Run::FilterBy, 32833})
        .Toggle(FilterIsSet<32833>),
    Row(32834, "CmdFilterFlag3", {Text::LabelFlag3, Text::TipFilterFlag, "flag-red"}, Menu::Filter,
        {Run::FilterBy, 32834})
        .When(InExpenseMode)
        .Toggle(FilterIsSet<32834>),
    Row(32835, "CmdFilterFlag4", {Text::LabelFlag4, Text::TipFilterFlag, "flag-yellow"}, Menu::Filter,
        {Run::FilterBy, 32835})
        .When(InExpenseMode)
        .Toggle(FilterIsSet<32835>),
    Row(32836, "CmdFilterFlag5", {Text::LabelFlag5, Text::TipFilterFlag, "user-identity"}, Menu::Filter,
        {Run::FilterBy, 32836})
        .When(InExpenseMode)
        .Toggle(FilterIsSet<32836>),
    Row(32837, "CmdFilterExported", {Text::CmdFilterExported, Text::TipFilterExported, "document-export"},
        Menu::Filter, {Run::FilterBy, 32837})
        .Toggle(FilterIsSet<32837>),
    Row(Command::kTimerStart, "CmdTimerStart",
        {Text::CmdTimerStart, Text::TipTimerStart, "media-playback-start", "F7"}, Menu::Timer,
        {Run::TimerAction, 1})
        .OfView()
        .When(TimesSelected),
    Row(Command::kTimerPause, "CmdTimerPause",
        {Text::CmdTimerPause, Text::TipTimerPause, "media-playback-pause", "F8"}, Menu::Timer,
        {Run::TimerAction, 2})
        .OfView()
        .When(RunningSelected),
    Row(Command::kTimerStop, "CmdTimerStop",
        {Text::CmdTimerStop, Text::TipTimerStop, "media-playback-stop", "F9"}, Menu::Timer,
        {Run::TimerAction, 0})
        .OfView()
        .When(TimersSelected),
    Row(Command::kStopAllTimers, "CmdStopAllTimers",
        {Text::CmdStopAllTimers, Text::TipStopAllTimers, "chronometer-reset", "Ctrl+Shift+F9"}, Menu::Timer,
        {Run::StopAllTimers})
        .BeginsGroup()
        .When(TimeModeWithTimer),
    Row(Command::kPauseAllTimers, "CmdPauseAllTimers",
        {Text::CmdPauseAllTimers, Text::TipPauseAllTimers, "chronometer-pause"}, Menu::Timer,
        {Run::PauseAllTimers})
        .When(TimeModeWithRunning),
    Row(Command::kEditLists, "CmdEditLists", {Text::CmdEditLists, Text::TipEditLists, "view-pim-tasks"},
        Menu::Lists, {Run::EditLists}),
    Row(Command::kEditDependencies, "CmdEditDependencies",
        {Text::CmdEditDependencies, Text::TipEditDependencies, "relationship"}, Menu::Lists,
        {Run::EditDependencies}),
    Row(Command::kUseDependencies, "CmdUseDependencies",
        {Text::CmdUseDependencies, Text::TipUseDependencies, "link"}, Menu::Lists, {Run::UseDependencies})
        .Toggle(UsesDependencies),
    Row(Command::kRenameLists, "CmdRenameLists", {Text::CmdRenameLists, Text::TipRenameLists, "edit-rename"},
        Menu::Lists, {Run::RenameLists})
        .BeginsGroup(),
    Row(Command::kDefaults, "CmdRecordDefaults", {Text::CmdDefaults, Text::TipDefaults, "bookmarks"},
        Menu::Lists, {Run::Defaults}),
};

/// Those of the menus after it.
constexpr CommandRow kLastCommands[] = {
    Row(Command::kFindCommand, "CmdFindCommand",
        {Text::CmdFindCommand, Text::TipFindCommand, "quickopen", "Ctrl+K"}, Menu::Tools, {Run::FindCommand}),
    Row(Command::kBackup, "CmdBackup", {Text::CmdBackup, Text::TipBackup, "document-save"}, Menu::Tools,
        {Run::Backup})
        .BeginsGroup(),
    Row(Command::kRestore, "CmdRestore", {Text::CmdRestore, Text::TipRestore, "document-revert"}, Menu::Tools,
        {Run::Restore}),
    Row(Command::kBackupPlan, "CmdBackupPlan",
        {Text::CmdBackupPlan, Text::TipBackupPlan, "document-save-all"}, Menu::Tools, {Run::BackupPlan}),
    Row(Command::kImport, "CmdImport", {Text::CmdImport, Text::TipImport, "document-import"}, Menu::Exchange,
        {Run::ImportRecords, 4}),
    Row(Command::kImportOlderForm, "CmdImportOlderForm",
        {Text::CmdImportOlderForm, Text::TipImportOlderForm, "document-import"}, Menu::Exchange,
        {Run::ImportRecords, 2}),
    Row(Command::kImportItems, "CmdImportItems",
        {Text::CmdImportItems, Text::TipImportItems, "document-import"}, Menu::Exchange, {Run::ImportItems}),
    Row(Command::kExport, "CmdExport", {Text::CmdExport, Text::TipExport, "document-export"}, Menu::Exchange,
        {Run::ExportRecords})
        .BeginsGroup(),
    Row(Command::kExportItems, "CmdExportItems",
        {Text::CmdExportItems, Text::TipExportItems, "document-export"}, Menu::Exchange, {Run::ExportItems}),
    Row(Command::kOptions, "CmdOptions", {Text::CmdOptions, Text::TipOptions, "configure", "Ctrl+,"},
        Menu::Tools, {Run::Options})
        .BeginsGroup(),
    Row(Command::kRegional, "CmdRegionalSettings",
        {Text::CmdRegional, Text::TipRegional, "preferences-desktop-locale"}, Menu::Tools,
        {Run::RegionalSettings})
        .When(HasRegionalSettings),
    Row(Command::kUserGuide, "CmdUserGuide", {Text::CmdUserGuide, Text::TipUserGuide, "help-contents", "F1"},
        Menu::Help, {Run::UserGuide}),
    Row(Command::kAllKeys, "CmdAllKeys",
        {Text::CmdAllKeys, Text::TipAllKeys, "preferences-desktop-keyboard", "?"}, Menu::Help,
        {Run::AllKeys}),
    Row(Command::kGuide, "CmdGuide", {Text::CmdGuide, Text::TipGuide, "help-hint"}, Menu::Help, {Run::Guide}),
    Row(Command::kAbout, "CmdAbout", {Text::CmdAbout, Text::TipAbout, "help-about"}, Menu::Help, {Run::About})
        .BeginsGroup(),
};

template <std::size_t... Sizes>
constexpr auto Join(const CommandRow (&... parts)[Sizes]) {
    std::array<CommandRow, (Sizes + ...)> joined{};
    auto* to = joined.begin();
    ((to = std::copy(std::begin(parts), std::end(parts), to)), ...);
    return joined;
}

constexpr auto kCommands =
    Join(kFirstCommands, ViewRows::kRows, WorkRows::kRows, ReportRows::kRows, kLastCommands);

const CommandRow* CommandOf(int id, Receiver receiver) {
    for (const CommandRow& row : kCommands)
        if (row.id == id && row.receiver == receiver) return &row;
    return nullptr;
}

}  // namespace

std::span<const CommandRow> CommandTable() {
    return kCommands;
}

const CommandRow* FindCommand(int command) {
    const CommandRow* row = CommandOf(command, Receiver::View);
    return row ? row : CommandOf(command, Receiver::Frame);
}

const CommandRow* RouteCommand(int id, const CommandState& state) {
    const CommandRow* ofView = CommandOf(id, Receiver::View);
    const CommandRow* ofFrame = CommandOf(id, Receiver::Frame);
    if (ofView && (state.listIsActive || !ofFrame)) return ofView;
    return ofFrame;
}

bool IsOffered(const CommandRow& row, const CommandState& state) {
    if (state.busy && row.run != Run::Exit) return false;
    if (row.receiver == Receiver::View && !state.listIsActive) return false;
    return !row.offered || row.offered(state);
}

bool IsChecked(const CommandRow& row, const CommandState& state) {
    return row.checked && row.checked(state);
}

QStringList ShortcutsOf(const CommandRow& row) {
    return QString::fromLatin1(row.keys).split(u' ', Qt::SkipEmptyParts);
}
