#pragma once

#include "lang/Text.h"
#include "viewmodel/commands/CommandState.h"

/// Numbers of the commands that code names. They are fixed.
namespace Command {
inline constexpr int kNew = 40147;  ///< the button, with the ways to a new record below it
inline constexpr int kNewPlain = 40002;
inline constexpr int kNewStampTimer = 32853;
inline constexpr int kNewFromDefault = 32856;
inline constexpr int kEdit = 103;
inline constexpr int kCopy = 101;
inline constexpr int kDelete = 102;
inline constexpr int kMarkFirst = 32838;
inline constexpr int kMarkFirstAndSecond = 40055;
inline constexpr int kUndo = 40250;  ///< a number of our own, as the next one
inline constexpr int kRedo = 40251;
inline constexpr int kSelectAll = 32813;
inline constexpr int kSelectNone = 32814;
inline constexpr int kSort = 32784;
inline constexpr int kTimeMode = 40011;
inline constexpr int kExpenseMode = 40012;
inline constexpr int kLayoutIcons = 32823;  ///< also the period "last year"
inline constexpr int kLayoutList = 32825;
inline constexpr int kLayoutColumns = 32826;
inline constexpr int kLayoutLines = 32783;
inline constexpr int kGroupNone = 40280;  ///< these to kFoldGroups are numbers of our own
inline constexpr int kGroupDays = 40281;
inline constexpr int kGroupWeeks = 40282;
inline constexpr int kGroupMonths = 40283;
inline constexpr int kFoldGroups = 40284;
inline constexpr int kListColumns = 40052;
inline constexpr int kFitColumns = 40286;
inline constexpr int kRestoreColumns = 40287;
inline constexpr int kListFont = 32829;
inline constexpr int kToggleTree = 32771;
inline constexpr int kPanesSideBySide = 32772;
inline constexpr int kPanesStacked = 32773;
inline constexpr int kTreeExpandAll = 40068;
inline constexpr int kTreeColumns = 40122;
inline constexpr int kToggleBar1 = 59392;
inline constexpr int kToggleBar2 = 32812;
inline constexpr int kToggleStatusBar = 32774;
inline constexpr int kCustomizeBar1 = 32817;
inline constexpr int kCustomizeBar2 = 32879;
inline constexpr int kRefresh = 32780;
inline constexpr int kRebuildViews = 32778;
inline constexpr int kPeriodToday = 32798;
inline constexpr int kPeriodAll = 32802;
inline constexpr int kPeriodDay = 32803;
inline constexpr int kPeriodRange = 40285;  ///< a number of our own, as the two of the columns
inline constexpr int kPeriodPrevious = 32844;
inline constexpr int kPeriodNext = 32845;
inline constexpr int kFilterDialog = 114;
inline constexpr int kClearFilter = 32810;
inline constexpr int kFilterTimers = 32851;
inline constexpr int kTimerStart = 40112;
inline constexpr int kTimerPause = 40113;
inline constexpr int kTimerStop = 40111;
inline constexpr int kStopAllTimers = 32868;
inline constexpr int kPauseAllTimers = 32869;
inline constexpr int kWorkLine = 40270;  ///< these to kToggleWorkBar are numbers of our own
inline constexpr int kWorkRecent = 40271;
inline constexpr int kContinue = 40272;
inline constexpr int kWorkPause = 40273;
inline constexpr int kWorkStop = 40274;
inline constexpr int kWorkOpen = 40275;
inline constexpr int kToggleWorkBar = 40276;
inline constexpr int kEditLists = 40009;
inline constexpr int kEditDependencies = 32886;
inline constexpr int kUseDependencies = 32891;
inline constexpr int kDefaults = 32777;
inline constexpr int kRenameLists = 40100;
inline constexpr int kBackup = 32830;
inline constexpr int kRestore = 32831;
inline constexpr int kBackupPlan = 40201;  ///< a number of our own, as the next one
inline constexpr int kSummary = 32788;
inline constexpr int kReportSave = 40067;
inline constexpr int kReportShrink = 32890;
inline constexpr int kReportClose = 32815;
inline constexpr int kReportChart = 40210;  ///< these to kReportPrint are numbers of our own, too
inline constexpr int kReportChartSave = 40211;
inline constexpr int kReportNextSum = 40212;
inline constexpr int kReportAgain = 40220;
inline constexpr int kReportFind = 40221;
inline constexpr int kReportCopy = 40222;
inline constexpr int kReportZoomIn = 40223;
inline constexpr int kReportZoomOut = 40224;
inline constexpr int kReportZoomNormal = 40225;
inline constexpr int kReportPdf = 40226;
inline constexpr int kReportCsv = 40227;
inline constexpr int kReportBrowser = 40228;
inline constexpr int kReportPreview = 40229;
inline constexpr int kReportPrint = 40230;
inline constexpr int kFind = 40260;  ///< these two are numbers of our own, as the next one
inline constexpr int kFindEverywhere = 40261;
inline constexpr int kFindCommand = 40200;  ///< a number of our own, which no resource has
inline constexpr int kOptions = 40066;
inline constexpr int kRegional = 32781;
inline constexpr int kImport = 40008;
inline constexpr int kImportOlderForm = 32892;
inline constexpr int kImportItems = 40069;
inline constexpr int kExport = 40006;
inline constexpr int kExportItems = 40070;
inline constexpr int kGuide = 40240;  ///< a number of our own, as the next two
inline constexpr int kUserGuide = 40290;
inline constexpr int kAllKeys = 40291;
inline constexpr int kAbout = 57664;
inline constexpr int kExit = 57665;
}  // namespace Command

/// What carries a command out; the window has one handler for each. The argument of the row tells which.
enum class Run {
    QuickEntry,  ///< argument: flags of NewTimeRecord
    EditRecord,
    CopyRecords,
    DeleteRecords,
    Mark,  ///< argument: a RecordMark
    Undo,
    Redo,
    SelectAll,
    SelectNone,
    SwitchMode,  ///< argument: a RecordMode
    Sort,
    Layout,      ///< argument: 1 to 4
    GroupList,   ///< argument: a ListGroups
    FoldGroups,  ///< all of them
    ListColumns,
    FitColumns,
    RestoreColumns,
    ListFont,
    ToggleTree,
    StackPanes,  ///< argument: 1 the tree above the list, 0 beside it
    ExpandTree,
    TreeColumns,
    ToggleWorkBar,
    ToggleBar1,
    ToggleBar2,
    ToggleStatusBar,
    CustomizeBar,  ///< argument: a Bar
    Refresh,
    RebuildViews,
    PeriodPreset,  ///< argument: preset
    PeriodAll,
    PeriodDay,
    PeriodRange,
    PeriodPrevious,
    PeriodNext,
    FilterDialog,
    ClearFilter,
    FilterTimers,
    FilterBy,     ///< argument: the command's number, which says the condition
    TimerAction,  ///< argument: 0 stop, 1 start, 2 pause
    StopAllTimers,
    PauseAllTimers,
    WorkLine,
    WorkRecent,
    Continue,
    WorkPause,
    WorkStop,
    WorkOpen,
    EditLists,
    EditDependencies,
    UseDependencies,
    Defaults,
    RenameLists,
    QuickReport,   ///< argument: a ReportKind
    StoredReport,  ///< argument: a ReportKind
    DefineReport,  ///< argument: a ReportKind
    SummaryReport,
    ReportAgain,
    ReportFind,
    ReportCopy,
    ReportZoom,  ///< argument: 1 larger, -1 smaller, 0 as it is
    ReportShrink,
    ReportChart,
    ReportNextSum,
    ReportChartSave,
    ReportSave,
    ReportPdf,
    ReportCsv,
    ReportBrowser,
    ReportPreview,
    ReportPrint,
    ReportClose,
    FindCommand,
    Find,
    FindEverywhere,
    Backup,
    Restore,
    BackupPlan,
    ImportRecords,  ///< argument: a RecordForm
    ImportItems,
    ExportRecords,
    ExportItems,
    Options,
    RegionalSettings,
    Guide,
    UserGuide,
    AllKeys,
    About,
    Exit
};

/// In which menu a command stands. Those after Help are submenus.
enum class Menu {
    Record,
    View,
    Period,
    Filter,
    Timer,
    Lists,
    Report,
    Tools,
    Help,
    New,
    Mark,
    ListGroups,
    DataTree,
    Bars,
    Exchange,
    PeriodWeeks,
    PeriodMonths,
    PeriodQuarters,
    PeriodYears,
    ReportStored,
    ReportDefine,
    ReportZoom,
    ReportChart
};

/// The tool bars: 101 records, 102 period and filter, 103 the report that is shown.
enum class Bar { Records, Filters, Report };

/// Who is asked first to carry a command out.
enum class Receiver { View, Frame };

/// Whether a command bears a check mark, and whether it is one of a group.
enum class CheckStyle { None, Toggle, Radio };

using Condition = bool (*)(const CommandState& state);

/// One command: what menus, tool bars and shortcuts are made of.
struct CommandRow {
    int id;
    const char* name;
    Text caption;
    Text tip;
    const char* icon;       ///< freedesktop name
    const char* keys = "";  ///< shortcuts in portable form, separated by blanks; empty for none
    Menu menu;
    bool beginsGroup = false;  ///< a separator stands before it
    Receiver receiver = Receiver::Frame;
    Run run;
    int argument = 0;
    Condition offered = nullptr;  ///< null: always
    CheckStyle check = CheckStyle::None;
    Condition checked = nullptr;  ///< null with CheckStyle::None
};
