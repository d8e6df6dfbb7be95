#include "viewmodel/commands/MenuTable.h"

namespace {

constexpr MenuRow kMenus[] = {
    {.menu = Menu::Record, .caption = Text::MenuRecord, .parent = Menu::Record},
    {.menu = Menu::View, .caption = Text::MenuView, .parent = Menu::View},
    {.menu = Menu::Period, .caption = Text::MenuPeriod, .parent = Menu::Period},
    {.menu = Menu::Filter, .caption = Text::MenuFilter, .parent = Menu::Filter},
    {.menu = Menu::Timer, .caption = Text::MenuTimer, .parent = Menu::Timer},
    {.menu = Menu::Lists, .caption = Text::MenuLists, .parent = Menu::Lists},
    {.menu = Menu::Report, .caption = Text::MenuReport, .parent = Menu::Report},
    {.menu = Menu::Tools, .caption = Text::MenuTools, .parent = Menu::Tools},
    {.menu = Menu::Help, .caption = Text::MenuHelp, .parent = Menu::Help},
    {.menu = Menu::New,
     .caption = Text::MenuNew,
     .icon = "document-new",
     .parent = Menu::Record,
     .afterCommand = Command::kNew},
    {.menu = Menu::Mark,
     .caption = Text::MenuMark,
     .icon = "flag-green",
     .parent = Menu::Record,
     .afterCommand = Command::kDelete},
    {.menu = Menu::ListGroups,
     .caption = Text::MenuGroups,
     .icon = "view-group",
     .parent = Menu::View,
     .afterCommand = Command::kLayoutLines},
    {.menu = Menu::DataTree,
     .caption = Text::MenuDataTree,
     .icon = "view-sidetree",
     .parent = Menu::View,
     .afterCommand = Command::kListFont,
     .beginsGroup = true},
    {.menu = Menu::Bars,
     .caption = Text::MenuBars,
     .icon = "configure-toolbars",
     .parent = Menu::View,
     .afterCommand = Command::kListFont},
    {.menu = Menu::Exchange,
     .caption = Text::MenuExchange,
     .icon = "document-swap",
     .parent = Menu::Tools,
     .afterCommand = Command::kFindCommand},
    {.menu = Menu::PeriodWeeks,
     .caption = Text::MenuPeriodWeeks,
     .icon = "view-calendar-week",
     .parent = Menu::Period,
     .afterCommand = Command::kPeriodDay},
    {.menu = Menu::PeriodMonths,
     .caption = Text::MenuPeriodMonths,
     .icon = "view-calendar-month",
     .parent = Menu::Period,
     .afterCommand = Command::kPeriodDay},
    {.menu = Menu::PeriodQuarters,
     .caption = Text::MenuPeriodQuarters,
     .icon = "view-calendar",
     .parent = Menu::Period,
     .afterCommand = Command::kPeriodDay},
    {.menu = Menu::PeriodYears,
     .caption = Text::MenuPeriodYears,
     .icon = "view-calendar",
     .parent = Menu::Period,
     .afterCommand = Command::kPeriodDay},
    {.menu = Menu::ReportStored,
     .caption = Text::MenuReportStored,
     .icon = "document-open-recent",
     .parent = Menu::Report,
     .afterCommand = Command::kSummary,
     .beginsGroup = true},
    {.menu = Menu::ReportDefine,
     .caption = Text::MenuReportDefine,
     .icon = "document-properties",
     .parent = Menu::Report,
     .afterCommand = Command::kSummary},
    {.menu = Menu::ReportZoom,
     .caption = Text::MenuReportZoom,
     .icon = "page-zoom",
     .parent = Menu::Report,
     .afterCommand = Command::kReportCopy},
    {.menu = Menu::ReportChart,
     .caption = Text::MenuReportChart,
     .icon = "office-chart-bar",
     .parent = Menu::Report,
     .afterCommand = Command::kReportShrink},
};

}  // namespace

std::span<const MenuRow> MenuTable() {
    return kMenus;
}

Menu MenuUnderButton(int command) {
    return command == Command::kNew                  ? Menu::New
           : command == Command::kMarkFirstAndSecond ? Menu::Mark
           : command == Command::kFilterDialog       ? Menu::Filter
           : command == Command::kReportChart        ? Menu::ReportChart
                                                     : Menu::Help;
}
