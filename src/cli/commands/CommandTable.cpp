#include "cli/commands/CommandTable.h"

#include "cli/arguments/QueryArguments.h"
#include "cli/arguments/RecordFields.h"
#include "cli/arguments/ReportArguments.h"
#include "cli/arguments/TextFileArguments.h"
#include "cli/commands/BackupCommands.h"
#include "cli/commands/CalendarCommands.h"
#include "cli/commands/ColumnCommands.h"
#include "cli/commands/DefaultCommands.h"
#include "cli/commands/ExportCommands.h"
#include "cli/commands/HistoryCommands.h"
#include "cli/commands/ImportCommands.h"
#include "cli/commands/LabelCommands.h"
#include "cli/commands/ListCommands.h"
#include "cli/commands/OtherCommands.h"
#include "cli/commands/QueryCommands.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/ReportCommands.h"
#include "cli/commands/ReportRunCommand.h"
#include "cli/commands/SettingCommands.h"
#include "cli/commands/SortOption.h"
#include "cli/commands/TimerCommands.h"
#include "cli/commands/TreeCommands.h"

#include <QStringList>
#include <initializer_list>
#include <vector>

namespace {

constexpr GroupRow kGroups[] = {
    {"time", Text::CliGroupTime},
    {"expense", Text::CliGroupExpense},
    {"timer", Text::CliGroupTimer},
    {"lists", Text::CliLists},
    {"items", Text::CliGroupItems},
    {"tree", Text::CliGroupTree},
    {"labels", Text::CliGroupLabels},
    {"defaults", Text::CliGroupDefaults},
    {"columns", Text::CliGroupColumns},
    {"report", Text::CliGroupReport},
    {"query", Text::CliGroupQuery},
    {"import", Text::CliGroupImport},
    {"export", Text::CliGroupExport},
    {"settings", Text::CliGroupSettings},
    {"day", Text::CliDay},
    {"period", Text::CliGroupPeriod},
    {"history", Text::CliHistory},
    {"undo", Text::CliUndo},
    {"redo", Text::CliRedo},
    {"backup", Text::CliBackup},
    {"verify", Text::CliVerify},
    {"restore", Text::CliRestore},
    {"texts", Text::CliTexts},
    {"doctor", Text::CliDoctor},
    {"demo", Text::CliGroupDemo},
};

constexpr OptionRow kGlobals[] = {
    {"home", "DIR", OptionShape::Value, Text::CliOptHome},
    {"json", "", OptionShape::Flag, Text::CliOptJson},
    {"yes", "", OptionShape::Flag, Text::CliOptYes},
    {"quiet", "", OptionShape::Flag, Text::CliOptQuiet},
    {"version", "", OptionShape::Flag, Text::CliOptVersion},
    {"help", "", OptionShape::Flag, Text::CliOptHelp},
};

using Options = decltype(CommandRow::options);
constexpr const char* kPathWords = "time|expense PATH...";
constexpr const char* kColumnWords = "time|expense [COLUMN...]";

void Append(std::vector<CommandRow>& rows, const char* group, std::initializer_list<CommandRow> commands) {
    for (CommandRow row : commands) {
        row.group = group;
        rows.push_back(row);
    }
}

/// The commands of a kind of records; those of the other are the same.
template <RecordMode Mode>
void AppendRecordCommands(std::vector<CommandRow>& rows, const char* group, Text toDelete, Text toMake) {
    const RecordKind kind = KindOf(Mode);
    const auto fields = FieldOptions(kind);
    Append(rows, group,
           {{"add", "", Text::CliTimeAdd, Of<Mode, AddRecord>, {fields}},
            {"edit", "ID", Text::CliTimeEdit, Of<Mode, EditRecord>, {fields, EditOptions()}},
            {"show", "ID", Text::CliTimeShow, Of<Mode, ShowRecord>},
            {"delete", "ID...", toDelete, Of<Mode, DeleteRecords>},
            {"copy", "ID...", Text::CliTimeCopy, Of<Mode, CopyRecords>},
            {"mark", "ID...", Text::CliTimeMark, Of<Mode, MarkRecords>, {MarkOptions(kind)}},
            {"new", "", toMake, Of<Mode, NewRecordFrom>, {NewOptions(kind)}},
            {"list",
             "",
             Text::CliTimeList,
             Of<Mode, ListRecords>,
             {FilterOptions(kind), QueryOption(), SortOption(), LimitOption()}}});
}

void AppendTimersAndLists(std::vector<CommandRow>& rows) {
    Append(rows, "timer",
           {{"start", "ID", Text::CliTimerStart, StartTimer},
            {"pause", "ID", Text::CliTimerPause, PauseTimer},
            {"stop", "ID", Text::CliTimerStop, StopTimer, {StopTimerOptions()}},
            {"stop-all", "", Text::CliTimerStopAll, StopAllTimers},
            {"pause-all", "", Text::CliTimerPauseAll, PauseAllTimers},
            {"drop", "ID", Text::CliTimerDrop, DropTimer},
            {"status", "", Text::CliTimerStatus, ShowTimers}});
    Append(rows, "lists", {{"", "", Text::CliLists, ShowLists}});
    Append(rows, "items",
           {{"list", "LIST", Text::CliItemsList, ListItems},
            {"add", "LIST TEXT", Text::CliItemsAdd, AddItem},
            {"rename", "LIST OLD NEW", Text::CliItemsRename, RenameItem, {RenameItemOptions()}},
            {"merge", "LIST OLD NEW", Text::CliItemsMerge, MergeItems},
            {"delete", "LIST TEXT", Text::CliItemsDelete, DeleteItem},
            {"clear", "LIST", Text::CliItemsClear, ClearItems}});
    Append(rows, "tree",
           {{"show", "time|expense", Text::CliTreeShow, ShowTree},
            {"add", kPathWords, Text::CliTreeAdd, AddToTree},
            {"remove", kPathWords, Text::CliTreeRemove, RemoveFromTree}});
    Append(rows, "labels",
           {{"list", "", Text::CliLabelsList, ListLabels},
            {"set", "ID TEXT", Text::CliLabelsSet, SetLabel},
            {"reset", "", Text::CliLabelsReset, ResetLabels},
            {"preset", "1|2", Text::CliLabelsPreset, UseLabelPreset}});
}

void AppendSettings(std::vector<CommandRow>& rows) {
    Append(rows, "defaults",
           {{"list", "", Text::CliDefaultsList, ListDefaults, {ModeOption()}},
            {"show", "NAME", Text::CliDefaultsShow, ShowDefault, {ModeOption()}},
            {"save", "NAME", Text::CliDefaultsSave, SaveDefault, {SaveDefaultOptions(), SaveDefaultFields()}},
            {"rename", "OLD NEW", Text::CliDefaultsRename, RenameDefault, {ModeOption()}},
            {"delete", "NAME", Text::CliDefaultsDelete, DeleteDefault, {ModeOption()}}});
    Append(rows, "columns",
           {{"list", "time|expense", Text::CliColumnsList, ListColumns, {ColumnSetOption()}},
            {"set", kColumnWords, Text::CliColumnsSet, SetColumns, {ColumnSetOption(), ColumnOptions()}},
            {"reset", "time|expense", Text::CliColumnsReset, ResetColumns, {ColumnSetOption()}}});
    Append(rows, "settings",
           {{"list", "", Text::CliSettingsList, ListSettings},
            {"own", "", Text::CliOwnSettings, ListOwnSettings},
            {"get", "NAME", Text::CliSettingsGet, GetSetting},
            {"set", "NAME VALUE", Text::CliSettingsSet, SetSetting},
            {"reset", "[NAME]", Text::CliSettingsReset, ResetSettings}});
}

void AppendReports(std::vector<CommandRow>& rows) {
    const auto mode = ModeOption(), kind = KindOption(), definition = DefinitionOptions();
    const auto filter = StoredQueryOptions();
    Append(
        rows, "report",
        {{"fields", "", Text::CliReportFields, ListReportFields, {mode}},
         {"list", "", Text::CliReportList, ListReports, {mode, kind}},
         {"show", "NAME", Text::CliReportShow, ShowReport, {mode, kind}},
         {"save", "NAME", Text::CliReportSave, SaveReport, {mode, kind, definition}},
         {"edit", "NAME", Text::CliReportEdit, EditReport, {mode, kind, definition}},
         {"rename", "OLD NEW", Text::CliReportRename, RenameReport, {mode, kind}},
         {"delete", "NAME", Text::CliReportDelete, DeleteReport, {mode, kind}},
         {"run", "[NAME]", Text::CliReportRun, RunReport, {mode, kind, definition, RunOptions(), filter}}});
    Append(rows, "query",
           {{"list", "", Text::CliQueryList, ListQueries, {mode}},
            {"show", "NAME", Text::CliQueryShow, ShowQuery, {mode}},
            {"save", "NAME", Text::CliQuerySave, SaveQuery, {mode, StoredQueryOptions()}},
            {"rename", "OLD NEW", Text::CliQueryRename, RenameQuery, {mode}},
            {"delete", "NAME", Text::CliQueryDelete, DeleteQuery, {mode}}});
}

void AppendExchange(std::vector<CommandRow>& rows) {
    const auto file = TextFileOptions();
    Append(rows, "import",
           {{"records", "FILE", Text::CliImportRecords, ImportRecords, {ImportRecordOptions(), file}},
            {"items", "FILE", Text::CliImportItems, ImportItems, {ImportItemOptions(), file}}});
    Append(rows, "export",
           {{"records", "FILE [ID...]", Text::CliExportRecords, ExportRecords, {ExportOptions(), file}},
            {"items", "FILE", Text::CliExportItems, ExportItems, {file}}});
}

void AppendOthers(std::vector<CommandRow>& rows) {
    Append(rows, "day", {{"", "DATE", Text::CliDay, ShowDay}});
    Append(rows, "period",
           {{"list", "", Text::CliPeriodList, ListPeriods}, {"show", "ID", Text::CliPeriodShow, ShowPeriod}});
    Append(rows, "history", {{"", "", Text::CliHistory, ListHistory, {HistoryOptions()}}});
    Append(rows, "undo", {{"", "", Text::CliUndo, UndoChange, {WayOptions()}}});
    Append(rows, "redo", {{"", "", Text::CliRedo, RedoChange, {WayOptions()}}});
    Append(rows, "backup", {{"", "FILE", Text::CliBackup, BackUp}});
    Append(rows, "verify", {{"", "FILE", Text::CliVerify, VerifyBackup}});
    Append(rows, "restore", {{"", "FILE", Text::CliRestore, RestoreBackup}});
    Append(rows, "texts", {{"", "", Text::CliTexts, ListTexts}});
    Append(rows, "doctor", {{"", "", Text::CliDoctor, RunDoctor, {DoctorOptions()}}});
    Append(rows, "demo", {{"fill", "N", Text::CliDemoFill, FillDemo, {DemoOptions()}}});
}

std::vector<CommandRow> MakeTable() {
    std::vector<CommandRow> rows;
    AppendRecordCommands<RecordMode::Time>(rows, "time", Text::CliTimeDelete, Text::CliTimeNew);
    AppendRecordCommands<RecordMode::Expense>(rows, "expense", Text::CliExpenseDelete, Text::CliExpenseNew);
    AppendTimersAndLists(rows);
    AppendSettings(rows);
    AppendReports(rows);
    AppendExchange(rows);
    AppendOthers(rows);
    return rows;
}

}  // namespace

std::span<const GroupRow> CommandGroups() {
    return kGroups;
}

std::span<const CommandRow> Commands() {
    static const std::vector<CommandRow> kTable = MakeTable();
    return kTable;
}

std::span<const OptionRow> GlobalOptions() {
    return kGlobals;
}

WordCount CountWords(const char* words) {
    WordCount count;
    for (const QString& word : QString::fromLatin1(words).split(u' ', Qt::SkipEmptyParts)) {
        if (!word.startsWith(u'[')) ++count.least;
        count.most = word.contains(u"...") ? kAnyNumber : count.most + 1;
    }
    return count;
}
