#include "viewmodel/commands/CommandTable.h"

#include "app/RecordMode.h"
#include "entry/QuickEntry.h"
#include "entry/RecordMarks.h"

namespace {

using State = CommandState;

bool OneSelected(const State& s) {
    return s.selected == 1;
}
bool AnySelected(const State& s) {
    return s.selected >= 1;
}
bool AnyListed(const State& s) {
    return s.listIsActive && s.listed > 0;
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
bool TimeModeWithTimer(const State& s) {
    return s.timeMode && s.anyTimer;
}
bool TimeModeWithRunning(const State& s) {
    return s.timeMode && s.anyRunning;
}
bool CanStep(const State& s) {
    return s.canStep;
}
bool HasModes(const State& s) {
    return s.has.modes;
}
bool HasDefaultsDialog(const State& s) {
    return s.has.defaultsDialog;
}
bool HasDefaults(const State& s) {
    return s.has.defaults;
}
bool DefaultsInTimeMode(const State& s) {
    return s.has.defaults && s.timeMode;
}
bool DefaultsAndOneTime(const State& s) {
    return s.has.defaults && OneTimeSelected(s);
}
bool NodeSelected(const State& s) {
    return s.has.tree && s.treeHasNode;
}
bool NodeInTimeMode(const State& s) {
    return NodeSelected(s) && s.timeMode;
}
bool HasTree(const State& s) {
    return s.has.tree;
}
bool TreeShown(const State& s) {
    return s.has.tree && s.treeShown;
}
bool TreeBeside(const State& s) {
    return TreeShown(s) && !s.treeStacked;
}
bool TreeAbove(const State& s) {
    return TreeShown(s) && s.treeStacked;
}
bool CanExpand(const State& s) {
    return TreeShown(s) && s.treeCanExpand;
}
bool HasLists(const State& s) {
    return s.has.lists;
}
bool ListsInTimeMode(const State& s) {
    return s.has.lists && s.timeMode;
}
bool ListsInExpenseMode(const State& s) {
    return s.has.lists && !s.timeMode;
}
bool HasBars(const State& s) {
    return s.has.bars;
}
bool HasPalette(const State& s) {
    return s.has.palette;
}
bool UsesDependencies(const State& s) {
    return s.useDependencies;
}
template <int FilterCommand>
bool FilterIsSet(const State& s) {
    return s.filters.contains(FilterCommand);
}
bool Bar1Shown(const State& s) {
    return s.bar1Shown;
}
bool Bar2Shown(const State& s) {
    return s.bar2Shown;
}
bool StatusBarShown(const State& s) {
    return s.statusBarShown;
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

// clang-format off
constexpr CommandRow kCommands[] = {
    {Command::kNew, "CmdQuickEntry", Text::CmdNew, Text::TipNew, "document-new", "Ctrl+N", Menu::Record, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank, nullptr, CheckStyle::None, nullptr},
    {32853, "CmdQuickEntry", Text::CmdNewStampTimer, Text::TipNewStampTimer, "chronometer-start", "Ctrl+T", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kTimestamp | QuickFlag::kTimer, InTimeMode, CheckStyle::None, nullptr},
    {32852, "CmdQuickEntry", Text::CmdNewStamp, Text::TipNewStamp, "appointment-new", "Ctrl+Shift+T", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kTimestamp, nullptr, CheckStyle::None, nullptr},
    {32854, "CmdQuickEntry", Text::CmdNewNext, Text::TipNewNext, "list-add", "Ctrl+Shift+N", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kSuccessive, OneTimeSelected, CheckStyle::None, nullptr},
    {32855, "CmdQuickEntry", Text::CmdNewNextTimer, Text::TipNewNextTimer, "chronometer-lap", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kSuccessive | QuickFlag::kTimer, OneTimeSelected, CheckStyle::None, nullptr},
    {32856, "CmdQuickEntry", Text::CmdDefaultsNew, Text::TipDefaultsNew, "document-new-from-template", "", Menu::New, true, Receiver::Frame, Run::QuickEntry, QuickFlag::kDefaults, HasDefaults, CheckStyle::None, nullptr},
    {32857, "CmdQuickEntry", Text::CmdDefaultsStamp, Text::TipDefaultsStamp, "bookmark-new", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kTimestamp, HasDefaults, CheckStyle::None, nullptr},
    {32858, "CmdQuickEntry", Text::CmdDefaultsStampTimer, Text::TipDefaultsStampTimer, "bookmark-new", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kTimestamp | QuickFlag::kTimer, DefaultsInTimeMode, CheckStyle::None, nullptr},
    {32859, "CmdQuickEntry", Text::CmdDefaultsNext, Text::TipDefaultsNext, "bookmarks", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kSuccessive, DefaultsAndOneTime, CheckStyle::None, nullptr},
    {32860, "CmdQuickEntry", Text::CmdDefaultsNextTimer, Text::TipDefaultsNextTimer, "bookmarks", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kDefaults | QuickFlag::kSuccessive | QuickFlag::kTimer, DefaultsAndOneTime, CheckStyle::None, nullptr},
    {32861, "CmdQuickEntry", Text::CmdTreeNew, Text::TipTreeNew, "node-add", "", Menu::New, true, Receiver::Frame, Run::QuickEntry, QuickFlag::kTree, NodeSelected, CheckStyle::None, nullptr},
    {32862, "CmdQuickEntry", Text::CmdTreeStamp, Text::TipTreeStamp, "node-add", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kTree | QuickFlag::kTimestamp, NodeSelected, CheckStyle::None, nullptr},
    {32863, "CmdQuickEntry", Text::CmdTreeStampTimer, Text::TipTreeStampTimer, "node-add", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kTree | QuickFlag::kTimestamp | QuickFlag::kTimer, NodeInTimeMode, CheckStyle::None, nullptr},
    {32864, "CmdQuickEntry", Text::CmdCopyStamp, Text::TipCopyStamp, "edit-duplicate", "", Menu::New, true, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kTimestamp, OneSelected, CheckStyle::None, nullptr},
    {32865, "CmdQuickEntry", Text::CmdCopyStampTimer, Text::TipCopyStampTimer, "edit-duplicate", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kTimestamp | QuickFlag::kTimer, OneTimeSelected, CheckStyle::None, nullptr},
    {32866, "CmdQuickEntry", Text::CmdCopyNext, Text::TipCopyNext, "edit-paste", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kSuccessive, OneTimeSelected, CheckStyle::None, nullptr},
    {32867, "CmdQuickEntry", Text::CmdCopyNextTimer, Text::TipCopyNextTimer, "edit-paste", "", Menu::New, false, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kSuccessive | QuickFlag::kTimer, OneTimeSelected, CheckStyle::None, nullptr},
    {Command::kEdit, "CmdEditRecord", Text::CmdEdit, Text::TipEdit, "document-edit", "Return Enter F2", Menu::Record, true, Receiver::Frame, Run::EditRecord, 0, OneSelected, CheckStyle::None, nullptr},
    {Command::kCopy, "CmdCopyRecords", Text::CmdCopy, Text::TipCopy, "edit-copy", "Ctrl+D", Menu::Record, false, Receiver::Frame, Run::CopyRecords, 0, AnySelected, CheckStyle::None, nullptr},
    {Command::kDelete, "CmdDeleteRecords", Text::CmdDelete, Text::TipDelete, "edit-delete", "Del", Menu::Record, false, Receiver::Frame, Run::DeleteRecords, 0, AnySelected, CheckStyle::None, nullptr},
    {Command::kMarkFirst, "CmdMarkFirst", Text::CmdMarkFirst, Text::TipMarkFirst, "flag-green", "Ctrl+M", Menu::Mark, false, Receiver::Frame, Run::Mark, kMark<RecordMark::First>, AnySelected, CheckStyle::None, nullptr},
    {Command::kMarkFirstAndSecond, "CmdMarkFirstAndSecond", Text::CmdMarkFirstSecond, Text::TipMarkFirstSecond, "flag-blue", "", Menu::Mark, false, Receiver::Frame, Run::Mark, kMark<RecordMark::FirstAndSecond>, AnySelected, CheckStyle::None, nullptr},
    {32839, "CmdMarkThird", Text::CmdMarkThird, Text::TipMarkThird, "flag-red", "", Menu::Mark, false, Receiver::Frame, Run::Mark, kMark<RecordMark::Third>, ExpensesSelected, CheckStyle::None, nullptr},
    {40058, "CmdMarkThirdAndFourth", Text::CmdMarkThirdFourth, Text::TipMarkThirdFourth, "flag-yellow", "", Menu::Mark, false, Receiver::Frame, Run::Mark, kMark<RecordMark::ThirdAndFourth>, ExpensesSelected, CheckStyle::None, nullptr},
    {32840, "CmdMarkFifth", Text::CmdMarkFifth, Text::TipMarkFifth, "user", "", Menu::Mark, false, Receiver::Frame, Run::Mark, kMark<RecordMark::Fifth>, ExpensesSelected, CheckStyle::None, nullptr},
    {32841, "CmdMarkExported", Text::CmdMarkExported, Text::TipMarkExported, "document-export", "", Menu::Mark, true, Receiver::Frame, Run::Mark, kMark<RecordMark::Exported>, AnySelected, CheckStyle::None, nullptr},
    {32842, "CmdClearExported", Text::CmdClearExported, Text::TipClearExported, "edit-clear", "", Menu::Mark, false, Receiver::Frame, Run::Mark, kMark<RecordMark::NotExported>, AnySelected, CheckStyle::None, nullptr},
    {Command::kSelectAll, "CmdSelectAll", Text::CmdSelectAll, Text::TipSelectAll, "edit-select-all", "Ctrl+A", Menu::Record, true, Receiver::View, Run::SelectAll, 0, AnyListed, CheckStyle::None, nullptr},
    {Command::kSelectNone, "CmdSelectNone", Text::CmdSelectNone, Text::TipSelectNone, "edit-select-none", "Ctrl+Shift+A", Menu::Record, false, Receiver::View, Run::SelectNone, 0, AnySelected, CheckStyle::None, nullptr},
    {Command::kExit, "CmdExit", Text::CmdExit, Text::TipExit, "application-exit", "Ctrl+Q", Menu::Record, true, Receiver::Frame, Run::Exit, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kTimeMode, "CmdTimeMode", Text::CmdTimeMode, Text::TipTimeMode, "clock", "Ctrl+1", Menu::View, false, Receiver::Frame, Run::SwitchMode, static_cast<int>(RecordMode::Time), HasModes, CheckStyle::Radio, InTimeMode},
    {Command::kExpenseMode, "CmdExpenseMode", Text::CmdExpenseMode, Text::TipExpenseMode, "wallet-open", "Ctrl+2", Menu::View, false, Receiver::Frame, Run::SwitchMode, static_cast<int>(RecordMode::Expense), HasModes, CheckStyle::Radio, InExpenseMode},
    {Command::kLayoutIcons, "CmdLayout", Text::CmdLayoutIcons, Text::TipLayoutIcons, "view-list-icons", "", Menu::View, true, Receiver::View, Run::Layout, 1, nullptr, CheckStyle::Radio, LayoutIs<1>},
    {Command::kLayoutList, "CmdLayout", Text::CmdLayoutList, Text::TipLayoutList, "view-list-text", "", Menu::View, false, Receiver::View, Run::Layout, 2, nullptr, CheckStyle::Radio, LayoutIs<2>},
    {Command::kLayoutColumns, "CmdLayout", Text::CmdLayoutColumns, Text::TipLayoutColumns, "view-list-details", "", Menu::View, false, Receiver::View, Run::Layout, 3, nullptr, CheckStyle::Radio, LayoutIs<3>},
    {Command::kLayoutLines, "CmdLayout", Text::CmdLayoutLines, Text::TipLayoutLines, "view-list-tree", "", Menu::View, false, Receiver::View, Run::Layout, 4, nullptr, CheckStyle::Radio, LayoutIs<4>},
    {Command::kSort, "CmdSortDialog", Text::CmdSort, Text::TipSort, "view-sort", "", Menu::View, true, Receiver::View, Run::Sort, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kListColumns, "CmdListColumns", Text::CmdListColumns, Text::TipListColumns, "object-columns", "", Menu::View, false, Receiver::Frame, Run::ListColumns, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kListFont, "CmdListFont", Text::CmdListFont, Text::TipListFont, "preferences-desktop-font", "", Menu::View, false, Receiver::Frame, Run::ListFont, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kRefresh, "CmdRefresh", Text::CmdRefresh, Text::TipRefresh, "view-refresh", "F5", Menu::View, true, Receiver::Frame, Run::Refresh, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kRebuildViews, "CmdRebuildViews", Text::CmdRebuildViews, Text::TipRebuildViews, "view-refresh", "Shift+F5", Menu::View, false, Receiver::View, Run::RebuildViews, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kToggleTree, "CmdToggleTree", Text::CmdToggleTree, Text::TipToggleTree, "view-sidetree", "", Menu::DataTree, false, Receiver::Frame, Run::ToggleTree, 0, HasTree, CheckStyle::Toggle, TreeShown},
    {Command::kPanesSideBySide, "CmdPanesSideBySide", Text::CmdPanesSideBySide, Text::TipPanesSideBySide, "view-split-left-right", "", Menu::DataTree, true, Receiver::Frame, Run::StackPanes, 0, TreeShown, CheckStyle::Radio, TreeBeside},
    {Command::kPanesStacked, "CmdPanesStacked", Text::CmdPanesStacked, Text::TipPanesStacked, "view-split-top-bottom", "", Menu::DataTree, false, Receiver::Frame, Run::StackPanes, 1, TreeShown, CheckStyle::Radio, TreeAbove},
    {Command::kTreeExpandAll, "CmdTreeExpandAll", Text::CmdTreeExpandAll, Text::TipTreeExpandAll, "expand-all", "", Menu::DataTree, true, Receiver::Frame, Run::ExpandTree, 0, CanExpand, CheckStyle::None, nullptr},
    {Command::kTreeColumns, "CmdTreeColumns", Text::CmdTreeColumns, Text::TipTreeColumns, "format-list-unordered", "", Menu::DataTree, true, Receiver::Frame, Run::TreeColumns, 0, HasTree, CheckStyle::None, nullptr},
    {Command::kToggleBar1, "CmdToggleBar1", Text::CmdToggleBar1, Text::TipToggleBar1, "configure-toolbars", "", Menu::Bars, false, Receiver::Frame, Run::ToggleBar1, 0, nullptr, CheckStyle::Toggle, Bar1Shown},
    {Command::kToggleBar2, "CmdToggleBar2", Text::CmdToggleBar2, Text::TipToggleBar2, "configure-toolbars", "", Menu::Bars, false, Receiver::Frame, Run::ToggleBar2, 0, nullptr, CheckStyle::Toggle, Bar2Shown},
    {Command::kToggleStatusBar, "CmdToggleStatusBar", Text::CmdToggleStatusBar, Text::TipToggleStatusBar, "kt-show-statusbar", "", Menu::Bars, false, Receiver::Frame, Run::ToggleStatusBar, 0, nullptr, CheckStyle::Toggle, StatusBarShown},
    {Command::kCustomizeBar1, "CmdCustomizeBar1", Text::CmdCustomizeBar1, Text::TipCustomizeBar1, "configure-toolbars", "", Menu::Bars, true, Receiver::Frame, Run::CustomizeBar, static_cast<int>(Bar::Records), HasBars, CheckStyle::None, nullptr},
    {Command::kCustomizeBar2, "CmdCustomizeBar2", Text::CmdCustomizeBar2, Text::TipCustomizeBar2, "configure-toolbars", "", Menu::Bars, false, Receiver::Frame, Run::CustomizeBar, static_cast<int>(Bar::Filters), HasBars, CheckStyle::None, nullptr},
    {Command::kPeriodPrevious, "CmdPeriodPrevious", Text::CmdPeriodPrevious, Text::TipPeriodPrevious, "go-previous", "Alt+Left", Menu::Period, false, Receiver::Frame, Run::PeriodPrevious, 0, CanStep, CheckStyle::None, nullptr},
    {Command::kPeriodNext, "CmdPeriodNext", Text::CmdPeriodNext, Text::TipPeriodNext, "go-next", "Alt+Right", Menu::Period, false, Receiver::Frame, Run::PeriodNext, 0, CanStep, CheckStyle::None, nullptr},
    {Command::kPeriodAll, "CmdPeriodAll", Text::PeriodAll, Text::TipPeriod, "view-calendar", "", Menu::Period, true, Receiver::Frame, Run::PeriodAll, 0, nullptr, CheckStyle::Radio, PresetIs<PeriodCode::kAll>},
    {Command::kPeriodToday, "CmdPeriod1", Text::PeriodToday, Text::TipPeriod, "view-calendar-day", "Alt+Home", Menu::Period, false, Receiver::Frame, Run::PeriodPreset, 1, nullptr, CheckStyle::Radio, PresetIs<1>},
    {32789, "CmdPeriodPreset", Text::PeriodYesterday, Text::TipPeriod, "view-calendar-day", "", Menu::Period, false, Receiver::Frame, Run::PeriodPreset, 16, nullptr, CheckStyle::Radio, PresetIs<16>},
    {Command::kPeriodDay, "CmdPeriodDay", Text::CmdPeriodDay, Text::TipPeriodDay, "view-calendar-day", "", Menu::Period, false, Receiver::Frame, Run::PeriodDay, 0, nullptr, CheckStyle::Radio, PresetIs<PeriodCode::kSingleDate>},
    {32799, "CmdPeriod2", Text::PeriodThisWeek, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Receiver::Frame, Run::PeriodPreset, 2, nullptr, CheckStyle::Radio, PresetIs<2>},
    {32800, "CmdPeriod3", Text::PeriodTwoWeeks, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Receiver::Frame, Run::PeriodPreset, 3, nullptr, CheckStyle::Radio, PresetIs<3>},
    {32790, "CmdPeriodPreset", Text::PeriodWeekToDate, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Receiver::Frame, Run::PeriodPreset, 10, nullptr, CheckStyle::Radio, PresetIs<10>},
    {32796, "CmdPeriodPreset", Text::PeriodLastWeek, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Receiver::Frame, Run::PeriodPreset, 17, nullptr, CheckStyle::Radio, PresetIs<17>},
    {32797, "CmdPeriodPreset", Text::PeriodLastWeekToDate, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Receiver::Frame, Run::PeriodPreset, 18, nullptr, CheckStyle::Radio, PresetIs<18>},
    {32843, "CmdPeriodPreset", Text::PeriodNextWeek, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Receiver::Frame, Run::PeriodPreset, 25, nullptr, CheckStyle::Radio, PresetIs<25>},
    {32847, "CmdPeriodPreset", Text::PeriodNextFourWeeks, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Receiver::Frame, Run::PeriodPreset, 26, nullptr, CheckStyle::Radio, PresetIs<26>},
    {32801, "CmdPeriod4", Text::PeriodThisMonth, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Receiver::Frame, Run::PeriodPreset, 4, nullptr, CheckStyle::Radio, PresetIs<4>},
    {32791, "CmdPeriodPreset", Text::PeriodMonthToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Receiver::Frame, Run::PeriodPreset, 11, nullptr, CheckStyle::Radio, PresetIs<11>},
    {32811, "CmdPeriodPreset", Text::PeriodLastMonth, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Receiver::Frame, Run::PeriodPreset, 19, nullptr, CheckStyle::Radio, PresetIs<19>},
    {32819, "CmdPeriodPreset", Text::PeriodLastMonthToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Receiver::Frame, Run::PeriodPreset, 20, nullptr, CheckStyle::Radio, PresetIs<20>},
    {32848, "CmdPeriodPreset", Text::PeriodNextMonth, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Receiver::Frame, Run::PeriodPreset, 27, nullptr, CheckStyle::Radio, PresetIs<27>},
    {32792, "CmdPeriodPreset", Text::PeriodThisQuarter, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Receiver::Frame, Run::PeriodPreset, 12, nullptr, CheckStyle::Radio, PresetIs<12>},
    {32793, "CmdPeriodPreset", Text::PeriodQuarterToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Receiver::Frame, Run::PeriodPreset, 13, nullptr, CheckStyle::Radio, PresetIs<13>},
    {32820, "CmdPeriodPreset", Text::PeriodLastQuarter, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Receiver::Frame, Run::PeriodPreset, 21, nullptr, CheckStyle::Radio, PresetIs<21>},
    {32822, "CmdPeriodPreset", Text::PeriodLastQuarterToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Receiver::Frame, Run::PeriodPreset, 22, nullptr, CheckStyle::Radio, PresetIs<22>},
    {32849, "CmdPeriodPreset", Text::PeriodNextQuarter, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Receiver::Frame, Run::PeriodPreset, 28, nullptr, CheckStyle::Radio, PresetIs<28>},
    {32794, "CmdPeriodPreset", Text::PeriodThisYear, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Receiver::Frame, Run::PeriodPreset, 14, nullptr, CheckStyle::Radio, PresetIs<14>},
    {32795, "CmdPeriodPreset", Text::PeriodYearToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Receiver::Frame, Run::PeriodPreset, 15, nullptr, CheckStyle::Radio, PresetIs<15>},
    {Command::kLayoutIcons, "CmdPeriodPreset", Text::PeriodLastYear, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Receiver::Frame, Run::PeriodPreset, 23, nullptr, CheckStyle::Radio, PresetIs<23>},
    {32824, "CmdPeriodPreset", Text::PeriodLastYearToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Receiver::Frame, Run::PeriodPreset, 24, nullptr, CheckStyle::Radio, PresetIs<24>},
    {32850, "CmdPeriodPreset", Text::PeriodNextYear, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Receiver::Frame, Run::PeriodPreset, 29, nullptr, CheckStyle::Radio, PresetIs<29>},
    {Command::kClearFilter, "CmdClearFilter", Text::CmdClearFilter, Text::TipClearFilter, "edit-clear-all", "Ctrl+Shift+L", Menu::Filter, false, Receiver::Frame, Run::ClearFilter, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kFilterTimers, "CmdFilterTimers", Text::CmdFilterTimers, Text::TipFilterTimers, "chronometer", "", Menu::Filter, false, Receiver::Frame, Run::FilterTimers, 0, TimeModeWithTimer, CheckStyle::None, nullptr},
    {32804, "CmdFilterList1", Text::FieldClient, Text::TipFilterText, "user", "", Menu::Filter, true, Receiver::Frame, Run::FilterBy, 32804, HasLists, CheckStyle::Toggle, FilterIsSet<32804>},
    {32805, "CmdFilterList2", Text::FieldProject, Text::TipFilterText, "project-development", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32805, HasLists, CheckStyle::Toggle, FilterIsSet<32805>},
    {32806, "CmdFilterList3", Text::LabelTimeItem3, Text::TipFilterText, "view-task", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32806, ListsInTimeMode, CheckStyle::Toggle, FilterIsSet<32806>},
    {32807, "CmdFilterList4", Text::FieldCostCentre, Text::TipFilterText, "view-bank", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32807, ListsInTimeMode, CheckStyle::Toggle, FilterIsSet<32807>},
    {32808, "CmdFilterList5", Text::LabelDescription, Text::TipFilterText, "view-financial-category", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32808, ListsInExpenseMode, CheckStyle::Toggle, FilterIsSet<32808>},
    {32809, "CmdFilterList6", Text::FieldExpenseItem4, Text::TipFilterText, "wallet-open", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32809, ListsInExpenseMode, CheckStyle::Toggle, FilterIsSet<32809>},
    {32832, "CmdFilterFlag1", Text::FieldBillable, Text::TipFilterFlag, "flag-green", "", Menu::Filter, true, Receiver::Frame, Run::FilterBy, 32832, nullptr, CheckStyle::Toggle, FilterIsSet<32832>},
    {32833, "CmdFilterFlag2", Text::FieldBilled, Text::TipFilterFlag, "flag-blue", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32833, nullptr, CheckStyle::Toggle, FilterIsSet<32833>},
    {32834, "CmdFilterFlag3", Text::LabelFlag3, Text::TipFilterFlag, "flag-red", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32834, InExpenseMode, CheckStyle::Toggle, FilterIsSet<32834>},
    {32835, "CmdFilterFlag4", Text::LabelFlag4, Text::TipFilterFlag, "flag-yellow", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32835, InExpenseMode, CheckStyle::Toggle, FilterIsSet<32835>},
    {32836, "CmdFilterFlag5", Text::LabelFlag5, Text::TipFilterFlag, "user-identity", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32836, InExpenseMode, CheckStyle::Toggle, FilterIsSet<32836>},
    {32837, "CmdFilterExported", Text::CmdFilterExported, Text::TipFilterExported, "document-export", "", Menu::Filter, false, Receiver::Frame, Run::FilterBy, 32837, nullptr, CheckStyle::Toggle, FilterIsSet<32837>},
    {Command::kTimerStart, "CmdTimerStart", Text::CmdTimerStart, Text::TipTimerStart, "media-playback-start", "F7", Menu::Timer, false, Receiver::View, Run::TimerAction, 1, TimesSelected, CheckStyle::None, nullptr},
    {Command::kTimerPause, "CmdTimerPause", Text::CmdTimerPause, Text::TipTimerPause, "media-playback-pause", "F8", Menu::Timer, false, Receiver::View, Run::TimerAction, 2, TimesSelected, CheckStyle::None, nullptr},
    {Command::kTimerStop, "CmdTimerStop", Text::CmdTimerStop, Text::TipTimerStop, "media-playback-stop", "F9", Menu::Timer, false, Receiver::View, Run::TimerAction, 0, TimesSelected, CheckStyle::None, nullptr},
    {Command::kStopAllTimers, "CmdStopAllTimers", Text::CmdStopAllTimers, Text::TipStopAllTimers, "chronometer-reset", "Ctrl+Shift+F9", Menu::Timer, true, Receiver::Frame, Run::StopAllTimers, 0, TimeModeWithTimer, CheckStyle::None, nullptr},
    {Command::kPauseAllTimers, "CmdPauseAllTimers", Text::CmdPauseAllTimers, Text::TipPauseAllTimers, "chronometer-pause", "", Menu::Timer, false, Receiver::Frame, Run::PauseAllTimers, 0, TimeModeWithRunning, CheckStyle::None, nullptr},
    {Command::kUseDependencies, "CmdUseDependencies", Text::CmdUseDependencies, Text::TipUseDependencies, "link", "", Menu::Lists, false, Receiver::Frame, Run::UseDependencies, 0, nullptr, CheckStyle::Toggle, UsesDependencies},
    {Command::kDefaults, "CmdRecordDefaults", Text::CmdDefaults, Text::TipDefaults, "bookmarks", "", Menu::Lists, true, Receiver::Frame, Run::Defaults, 0, HasDefaultsDialog, CheckStyle::None, nullptr},
    {Command::kFindCommand, "CmdFindCommand", Text::CmdFindCommand, Text::TipFindCommand, "edit-find", "Ctrl+K", Menu::Tools, false, Receiver::Frame, Run::FindCommand, 0, HasPalette, CheckStyle::None, nullptr},
    {Command::kOptions, "CmdOptions", Text::CmdOptions, Text::TipOptions, "configure", "Ctrl+,", Menu::Tools, true, Receiver::Frame, Run::Options, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kAbout, "CmdAbout", Text::CmdAbout, Text::TipAbout, "help-about", "", Menu::Help, false, Receiver::Frame, Run::About, 0, nullptr, CheckStyle::None, nullptr},
};
// clang-format on

constexpr MenuRow kMenus[] = {
    {Menu::Record, Text::MenuRecord, "", Menu::Record, 0, false},
    {Menu::View, Text::MenuView, "", Menu::View, 0, false},
    {Menu::Period, Text::MenuPeriod, "", Menu::Period, 0, false},
    {Menu::Filter, Text::MenuFilter, "", Menu::Filter, 0, false},
    {Menu::Timer, Text::MenuTimer, "", Menu::Timer, 0, false},
    {Menu::Lists, Text::MenuLists, "", Menu::Lists, 0, false},
    {Menu::Tools, Text::MenuTools, "", Menu::Tools, 0, false},
    {Menu::Help, Text::MenuHelp, "", Menu::Help, 0, false},
    {Menu::New, Text::MenuNew, "document-new", Menu::Record, Command::kNew, false},
    {Menu::Mark, Text::MenuMark, "flag-green", Menu::Record, Command::kDelete, false},
    {Menu::DataTree, Text::MenuDataTree, "view-sidetree", Menu::View, Command::kListFont, true},
    {Menu::Bars, Text::MenuBars, "configure-toolbars", Menu::View, Command::kListFont, false},
    {Menu::PeriodWeeks, Text::MenuPeriodWeeks, "view-calendar-week", Menu::Period, Command::kPeriodDay,
     false},
    {Menu::PeriodMonths, Text::MenuPeriodMonths, "view-calendar-month", Menu::Period, Command::kPeriodDay,
     false},
    {Menu::PeriodQuarters, Text::MenuPeriodQuarters, "view-calendar", Menu::Period, Command::kPeriodDay,
     false},
    {Menu::PeriodYears, Text::MenuPeriodYears, "view-calendar", Menu::Period, Command::kPeriodDay, false},
};

const CommandRow* CommandOf(int id, Receiver receiver) {
    for (const CommandRow& row : kCommands)
        if (row.id == id && row.receiver == receiver) return &row;
    return nullptr;
}

}  // namespace

std::span<const CommandRow> CommandTable() {
    return kCommands;
}

std::span<const MenuRow> MenuTable() {
    return kMenus;
}

Menu MenuUnderButton(int command) {
    return command == Command::kNew                  ? Menu::New
           : command == Command::kMarkFirstAndSecond ? Menu::Mark
                                                     : Menu::Help;
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
    return !row.offered || row.offered(state);
}

bool IsChecked(const CommandRow& row, const CommandState& state) {
    return row.checked && row.checked(state);
}

QStringList ShortcutsOf(const CommandRow& row) {
    return QString::fromLatin1(row.keys).split(u' ', Qt::SkipEmptyParts);
}
