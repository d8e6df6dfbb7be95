#include "shell/core/CommandTable.h"

#include "entry/QuickEntry.h"

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

// clang-format off
constexpr CommandRow kCommands[] = {
    {Command::kNew, "CmdQuickEntry", Text::CmdNew, Text::TipNew, "document-new", "Ctrl+N", Menu::Record, false, Bar::Records, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank, nullptr, CheckStyle::None, nullptr},
    {32853, "CmdQuickEntry", Text::CmdNewStampTimer, Text::TipNewStampTimer, "chronometer-start", "Ctrl+T", Menu::New, false, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kTimestamp | QuickFlag::kTimer, InTimeMode, CheckStyle::None, nullptr},
    {32852, "CmdQuickEntry", Text::CmdNewStamp, Text::TipNewStamp, "appointment-new", "Ctrl+Shift+T", Menu::New, false, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kTimestamp, nullptr, CheckStyle::None, nullptr},
    {32854, "CmdQuickEntry", Text::CmdNewNext, Text::TipNewNext, "list-add", "Ctrl+Shift+N", Menu::New, false, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kSuccessive, OneTimeSelected, CheckStyle::None, nullptr},
    {32855, "CmdQuickEntry", Text::CmdNewNextTimer, Text::TipNewNextTimer, "chronometer-lap", "", Menu::New, false, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kBlank | QuickFlag::kSuccessive | QuickFlag::kTimer, OneTimeSelected, CheckStyle::None, nullptr},
    {32864, "CmdQuickEntry", Text::CmdCopyStamp, Text::TipCopyStamp, "edit-duplicate", "", Menu::New, true, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kTimestamp, OneSelected, CheckStyle::None, nullptr},
    {32865, "CmdQuickEntry", Text::CmdCopyStampTimer, Text::TipCopyStampTimer, "edit-duplicate", "", Menu::New, false, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kTimestamp | QuickFlag::kTimer, OneTimeSelected, CheckStyle::None, nullptr},
    {32866, "CmdQuickEntry", Text::CmdCopyNext, Text::TipCopyNext, "edit-paste", "", Menu::New, false, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kSuccessive, OneTimeSelected, CheckStyle::None, nullptr},
    {32867, "CmdQuickEntry", Text::CmdCopyNextTimer, Text::TipCopyNextTimer, "edit-paste", "", Menu::New, false, Bar::None, Receiver::Frame, Run::QuickEntry, QuickFlag::kCopy | QuickFlag::kSuccessive | QuickFlag::kTimer, OneTimeSelected, CheckStyle::None, nullptr},
    {Command::kEdit, "CmdEditRecord", Text::CmdEdit, Text::TipEdit, "document-edit", "Return Enter F2", Menu::Record, true, Bar::Records, Receiver::Frame, Run::EditRecord, 0, OneSelected, CheckStyle::None, nullptr},
    {Command::kCopy, "CmdCopyRecords", Text::CmdCopy, Text::TipCopy, "edit-copy", "Ctrl+D", Menu::Record, false, Bar::Records, Receiver::Frame, Run::CopyRecords, 0, AnySelected, CheckStyle::None, nullptr},
    {Command::kDelete, "CmdDeleteRecords", Text::CmdDelete, Text::TipDelete, "edit-delete", "Del", Menu::Record, false, Bar::Records, Receiver::Frame, Run::DeleteRecords, 0, AnySelected, CheckStyle::None, nullptr},
    {Command::kMarkFirst, "CmdMarkFirst", Text::CmdMarkFirst, Text::TipMarkFirst, "flag-green", "Ctrl+M", Menu::Mark, false, Bar::None, Receiver::Frame, Run::Mark, 0, AnySelected, CheckStyle::None, nullptr},
    {Command::kMarkFirstAndSecond, "CmdMarkFirstAndSecond", Text::CmdMarkFirstSecond, Text::TipMarkFirstSecond, "flag-blue", "", Menu::Mark, false, Bar::Records, Receiver::Frame, Run::Mark, 1, AnySelected, CheckStyle::None, nullptr},
    {32841, "CmdMarkExported", Text::CmdMarkExported, Text::TipMarkExported, "document-export", "", Menu::Mark, true, Bar::None, Receiver::Frame, Run::Mark, 5, AnySelected, CheckStyle::None, nullptr},
    {32842, "CmdClearExported", Text::CmdClearExported, Text::TipClearExported, "edit-clear", "", Menu::Mark, false, Bar::None, Receiver::Frame, Run::Mark, 6, AnySelected, CheckStyle::None, nullptr},
    {Command::kSelectAll, "CmdSelectAll", Text::CmdSelectAll, Text::TipSelectAll, "edit-select-all", "Ctrl+A", Menu::Record, true, Bar::None, Receiver::View, Run::SelectAll, 0, AnyListed, CheckStyle::None, nullptr},
    {Command::kSelectNone, "CmdSelectNone", Text::CmdSelectNone, Text::TipSelectNone, "edit-select-none", "Ctrl+Shift+A", Menu::Record, false, Bar::None, Receiver::View, Run::SelectNone, 0, AnySelected, CheckStyle::None, nullptr},
    {Command::kExit, "CmdExit", Text::CmdExit, Text::TipExit, "application-exit", "Ctrl+Q", Menu::Record, true, Bar::None, Receiver::Frame, Run::Exit, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kLayoutIcons, "CmdLayout", Text::CmdLayoutIcons, Text::TipLayoutIcons, "view-list-icons", "", Menu::View, false, Bar::None, Receiver::View, Run::Layout, 1, nullptr, CheckStyle::Radio, LayoutIs<1>},
    {Command::kLayoutList, "CmdLayout", Text::CmdLayoutList, Text::TipLayoutList, "view-list-text", "", Menu::View, false, Bar::None, Receiver::View, Run::Layout, 2, nullptr, CheckStyle::Radio, LayoutIs<2>},
    {Command::kLayoutColumns, "CmdLayout", Text::CmdLayoutColumns, Text::TipLayoutColumns, "view-list-details", "", Menu::View, false, Bar::None, Receiver::View, Run::Layout, 3, nullptr, CheckStyle::Radio, LayoutIs<3>},
    {Command::kLayoutLines, "CmdLayout", Text::CmdLayoutLines, Text::TipLayoutLines, "view-list-tree", "", Menu::View, false, Bar::None, Receiver::View, Run::Layout, 4, nullptr, CheckStyle::Radio, LayoutIs<4>},
    {Command::kSort, "CmdSortDialog", Text::CmdSort, Text::TipSort, "view-sort", "", Menu::View, true, Bar::None, Receiver::View, Run::Sort, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kRefresh, "CmdRefresh", Text::CmdRefresh, Text::TipRefresh, "view-refresh", "F5", Menu::View, false, Bar::None, Receiver::Frame, Run::Refresh, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kToggleBar1, "CmdToggleBar1", Text::CmdToggleBar1, Text::TipToggleBar1, "configure-toolbars", "", Menu::View, true, Bar::None, Receiver::Frame, Run::ToggleBar1, 0, nullptr, CheckStyle::Toggle, Bar1Shown},
    {Command::kToggleBar2, "CmdToggleBar2", Text::CmdToggleBar2, Text::TipToggleBar2, "configure-toolbars", "", Menu::View, false, Bar::None, Receiver::Frame, Run::ToggleBar2, 0, nullptr, CheckStyle::Toggle, Bar2Shown},
    {Command::kToggleStatusBar, "CmdToggleStatusBar", Text::CmdToggleStatusBar, Text::TipToggleStatusBar, "kt-show-statusbar", "", Menu::View, false, Bar::None, Receiver::Frame, Run::ToggleStatusBar, 0, nullptr, CheckStyle::Toggle, StatusBarShown},
    {Command::kPeriodPrevious, "CmdPeriodPrevious", Text::CmdPeriodPrevious, Text::TipPeriodPrevious, "go-previous", "Alt+Left", Menu::Period, false, Bar::Filters, Receiver::Frame, Run::PeriodPrevious, 0, CanStep, CheckStyle::None, nullptr},
    {Command::kPeriodNext, "CmdPeriodNext", Text::CmdPeriodNext, Text::TipPeriodNext, "go-next", "Alt+Right", Menu::Period, false, Bar::Filters, Receiver::Frame, Run::PeriodNext, 0, CanStep, CheckStyle::None, nullptr},
    {Command::kPeriodAll, "CmdPeriodAll", Text::PeriodAll, Text::TipPeriod, "view-calendar", "", Menu::Period, true, Bar::None, Receiver::Frame, Run::PeriodAll, 0, nullptr, CheckStyle::Radio, PresetIs<PeriodCode::kAll>},
    {Command::kPeriodToday, "CmdPeriod1", Text::PeriodToday, Text::TipPeriod, "view-calendar-day", "Alt+Home", Menu::Period, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 1, nullptr, CheckStyle::Radio, PresetIs<1>},
    {32789, "CmdPeriodPreset", Text::PeriodYesterday, Text::TipPeriod, "view-calendar-day", "", Menu::Period, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 16, nullptr, CheckStyle::Radio, PresetIs<16>},
    {Command::kPeriodDay, "CmdPeriodDay", Text::CmdPeriodDay, Text::TipPeriodDay, "view-calendar-day", "", Menu::Period, false, Bar::None, Receiver::Frame, Run::PeriodDay, 0, nullptr, CheckStyle::Radio, PresetIs<PeriodCode::kSingleDate>},
    {32799, "CmdPeriod2", Text::PeriodThisWeek, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 2, nullptr, CheckStyle::Radio, PresetIs<2>},
    {32800, "CmdPeriod3", Text::PeriodTwoWeeks, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 3, nullptr, CheckStyle::Radio, PresetIs<3>},
    {32790, "CmdPeriodPreset", Text::PeriodWeekToDate, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 10, nullptr, CheckStyle::Radio, PresetIs<10>},
    {32796, "CmdPeriodPreset", Text::PeriodLastWeek, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 17, nullptr, CheckStyle::Radio, PresetIs<17>},
    {32797, "CmdPeriodPreset", Text::PeriodLastWeekToDate, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 18, nullptr, CheckStyle::Radio, PresetIs<18>},
    {32843, "CmdPeriodPreset", Text::PeriodNextWeek, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 25, nullptr, CheckStyle::Radio, PresetIs<25>},
    {32847, "CmdPeriodPreset", Text::PeriodNextFourWeeks, Text::TipPeriod, "view-calendar-week", "", Menu::PeriodWeeks, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 26, nullptr, CheckStyle::Radio, PresetIs<26>},
    {32801, "CmdPeriod4", Text::PeriodThisMonth, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 4, nullptr, CheckStyle::Radio, PresetIs<4>},
    {32791, "CmdPeriodPreset", Text::PeriodMonthToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 11, nullptr, CheckStyle::Radio, PresetIs<11>},
    {32811, "CmdPeriodPreset", Text::PeriodLastMonth, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 19, nullptr, CheckStyle::Radio, PresetIs<19>},
    {32819, "CmdPeriodPreset", Text::PeriodLastMonthToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 20, nullptr, CheckStyle::Radio, PresetIs<20>},
    {32848, "CmdPeriodPreset", Text::PeriodNextMonth, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodMonths, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 27, nullptr, CheckStyle::Radio, PresetIs<27>},
    {32792, "CmdPeriodPreset", Text::PeriodThisQuarter, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 12, nullptr, CheckStyle::Radio, PresetIs<12>},
    {32793, "CmdPeriodPreset", Text::PeriodQuarterToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 13, nullptr, CheckStyle::Radio, PresetIs<13>},
    {32820, "CmdPeriodPreset", Text::PeriodLastQuarter, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 21, nullptr, CheckStyle::Radio, PresetIs<21>},
    {32822, "CmdPeriodPreset", Text::PeriodLastQuarterToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 22, nullptr, CheckStyle::Radio, PresetIs<22>},
    {32849, "CmdPeriodPreset", Text::PeriodNextQuarter, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodQuarters, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 28, nullptr, CheckStyle::Radio, PresetIs<28>},
    {32794, "CmdPeriodPreset", Text::PeriodThisYear, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 14, nullptr, CheckStyle::Radio, PresetIs<14>},
    {32795, "CmdPeriodPreset", Text::PeriodYearToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 15, nullptr, CheckStyle::Radio, PresetIs<15>},
    {Command::kLayoutIcons, "CmdPeriodPreset", Text::PeriodLastYear, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 23, nullptr, CheckStyle::Radio, PresetIs<23>},
    {32824, "CmdPeriodPreset", Text::PeriodLastYearToDate, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 24, nullptr, CheckStyle::Radio, PresetIs<24>},
    {32850, "CmdPeriodPreset", Text::PeriodNextYear, Text::TipPeriod, "view-calendar-month", "", Menu::PeriodYears, false, Bar::None, Receiver::Frame, Run::PeriodPreset, 29, nullptr, CheckStyle::Radio, PresetIs<29>},
    {Command::kClearFilter, "CmdClearFilter", Text::CmdClearFilter, Text::TipClearFilter, "edit-clear-all", "Ctrl+Shift+L", Menu::Filter, false, Bar::Filters, Receiver::Frame, Run::ClearFilter, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kFilterTimers, "CmdFilterTimers", Text::CmdFilterTimers, Text::TipFilterTimers, "chronometer", "", Menu::Filter, false, Bar::Filters, Receiver::Frame, Run::FilterTimers, 0, TimeModeWithTimer, CheckStyle::None, nullptr},
    {Command::kTimerStart, "CmdTimerStart", Text::CmdTimerStart, Text::TipTimerStart, "media-playback-start", "F7", Menu::Timer, false, Bar::Records, Receiver::View, Run::TimerAction, 1, TimesSelected, CheckStyle::None, nullptr},
    {Command::kTimerPause, "CmdTimerPause", Text::CmdTimerPause, Text::TipTimerPause, "media-playback-pause", "F8", Menu::Timer, false, Bar::Records, Receiver::View, Run::TimerAction, 2, TimesSelected, CheckStyle::None, nullptr},
    {Command::kTimerStop, "CmdTimerStop", Text::CmdTimerStop, Text::TipTimerStop, "media-playback-stop", "F9", Menu::Timer, false, Bar::Records, Receiver::View, Run::TimerAction, 0, TimesSelected, CheckStyle::None, nullptr},
    {Command::kStopAllTimers, "CmdStopAllTimers", Text::CmdStopAllTimers, Text::TipStopAllTimers, "chronometer-reset", "Ctrl+Shift+F9", Menu::Timer, true, Bar::None, Receiver::Frame, Run::StopAllTimers, 0, TimeModeWithTimer, CheckStyle::None, nullptr},
    {Command::kPauseAllTimers, "CmdPauseAllTimers", Text::CmdPauseAllTimers, Text::TipPauseAllTimers, "chronometer-pause", "", Menu::Timer, false, Bar::None, Receiver::Frame, Run::PauseAllTimers, 0, TimeModeWithRunning, CheckStyle::None, nullptr},
    {Command::kOptions, "CmdOptions", Text::CmdOptions, Text::TipOptions, "configure", "Ctrl+,", Menu::Tools, false, Bar::None, Receiver::Frame, Run::Options, 0, nullptr, CheckStyle::None, nullptr},
    {Command::kAbout, "CmdAbout", Text::CmdAbout, Text::TipAbout, "help-about", "", Menu::Help, false, Bar::None, Receiver::Frame, Run::About, 0, nullptr, CheckStyle::None, nullptr},
};
// clang-format on

constexpr MenuRow kMenus[] = {
    {Menu::Record, Text::MenuRecord, "", Menu::Record, 0},
    {Menu::View, Text::MenuView, "", Menu::View, 0},
    {Menu::Period, Text::MenuPeriod, "", Menu::Period, 0},
    {Menu::Filter, Text::MenuFilter, "", Menu::Filter, 0},
    {Menu::Timer, Text::MenuTimer, "", Menu::Timer, 0},
    {Menu::Tools, Text::MenuTools, "", Menu::Tools, 0},
    {Menu::Help, Text::MenuHelp, "", Menu::Help, 0},
    {Menu::New, Text::MenuNew, "document-new", Menu::Record, Command::kNew},
    {Menu::Mark, Text::MenuMark, "flag-green", Menu::Record, Command::kDelete},
    {Menu::PeriodWeeks, Text::MenuPeriodWeeks, "view-calendar-week", Menu::Period, Command::kPeriodDay},
    {Menu::PeriodMonths, Text::MenuPeriodMonths, "view-calendar-month", Menu::Period, Command::kPeriodDay},
    {Menu::PeriodQuarters, Text::MenuPeriodQuarters, "view-calendar", Menu::Period, Command::kPeriodDay},
    {Menu::PeriodYears, Text::MenuPeriodYears, "view-calendar", Menu::Period, Command::kPeriodDay},
};

const CommandRow* FindCommand(int id, Receiver receiver) {
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

const CommandRow* RouteCommand(int id, const CommandState& state) {
    const CommandRow* ofView = FindCommand(id, Receiver::View);
    const CommandRow* ofFrame = FindCommand(id, Receiver::Frame);
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
