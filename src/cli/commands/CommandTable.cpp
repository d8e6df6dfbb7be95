#include "cli/commands/CommandTable.h"

#include "cli/arguments/FilterArguments.h"
#include "cli/arguments/RecordFields.h"
#include "cli/commands/CalendarCommands.h"
#include "cli/commands/ColumnCommands.h"
#include "cli/commands/DefaultCommands.h"
#include "cli/commands/LabelCommands.h"
#include "cli/commands/ListCommands.h"
#include "cli/commands/OtherCommands.h"
#include "cli/commands/RecordCommands.h"
#include "cli/commands/SettingCommands.h"
#include "cli/commands/TimerCommands.h"
#include "cli/commands/TreeCommands.h"

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
    {"settings", Text::CliGroupSettings},
    {"day", Text::CliDay},
    {"period", Text::CliGroupPeriod},
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

/// The commands of a kind of records; those of the other are the same.
template <RecordMode Mode>
void AppendRecordCommands(const char* group, Text toDelete, Text toMake, std::vector<CommandRow>& rows) {
    const RecordKind kind = KindOf(Mode);
    const auto fields = FieldOptions(kind);
    const Options marks{MarkOptions(kind)}, filters{FilterOptions(kind), ListOptions()};
    const CommandRow commands[] = {
        {group, "add", "", 0, 0, {fields}, Text::CliTimeAdd, Of<Mode, AddRecord>},
        {group, "edit", "ID", 1, 1, {fields, EditOptions()}, Text::CliTimeEdit, Of<Mode, EditRecord>},
        {group, "show", "ID", 1, 1, {}, Text::CliTimeShow, Of<Mode, ShowRecord>},
        {group, "delete", "ID...", 1, kAnyNumber, {}, toDelete, Of<Mode, DeleteRecords>},
        {group, "copy", "ID...", 1, kAnyNumber, {}, Text::CliTimeCopy, Of<Mode, CopyRecords>},
        {group, "mark", "ID...", 1, kAnyNumber, marks, Text::CliTimeMark, Of<Mode, MarkRecords>},
        {group, "new", "", 0, 0, {NewOptions(kind)}, toMake, Of<Mode, NewRecordFrom>},
        {group, "list", "", 0, 0, filters, Text::CliTimeList, Of<Mode, ListRecords>},
    };
    rows.insert(rows.end(), std::begin(commands), std::end(commands));
}

std::vector<CommandRow> MakeTable() {
    std::vector<CommandRow> rows;
    AppendRecordCommands<RecordMode::Time>("time", Text::CliTimeDelete, Text::CliTimeNew, rows);
    AppendRecordCommands<RecordMode::Expense>("expense", Text::CliExpenseDelete, Text::CliExpenseNew, rows);
    const Options stored{SaveDefaultOptions(), SaveDefaultFields()},
        columns{ColumnSetOption(), ColumnOptions()};
    const CommandRow others[] = {
        {"timer", "start", "ID", 1, 1, {}, Text::CliTimerStart, StartTimer},
        {"timer", "pause", "ID", 1, 1, {}, Text::CliTimerPause, PauseTimer},
        {"timer", "stop", "ID", 1, 1, {}, Text::CliTimerStop, StopTimer},
        {"timer", "stop-all", "", 0, 0, {}, Text::CliTimerStopAll, StopAllTimers},
        {"timer", "pause-all", "", 0, 0, {}, Text::CliTimerPauseAll, PauseAllTimers},
        {"timer", "drop", "ID", 1, 1, {}, Text::CliTimerDrop, DropTimer},
        {"timer", "status", "", 0, 0, {}, Text::CliTimerStatus, ShowTimers},
        {"lists", "", "", 0, 0, {}, Text::CliLists, ShowLists},
        {"items", "list", "LIST", 1, 1, {}, Text::CliItemsList, ListItems},
        {"items", "add", "LIST TEXT", 2, 2, {}, Text::CliItemsAdd, AddItem},
        {"items", "rename", "LIST OLD NEW", 3, 3, {RenameItemOptions()}, Text::CliItemsRename, RenameItem},
        {"items", "delete", "LIST TEXT", 2, 2, {}, Text::CliItemsDelete, DeleteItem},
        {"items", "clear", "LIST", 1, 1, {}, Text::CliItemsClear, ClearItems},
        {"tree", "show", "time|expense", 1, 1, {}, Text::CliTreeShow, ShowTree},
        {"tree", "add", kPathWords, 2, kAnyNumber, {}, Text::CliTreeAdd, AddToTree},
        {"tree", "remove", kPathWords, 2, kAnyNumber, {}, Text::CliTreeRemove, RemoveFromTree},
        {"labels", "list", "", 0, 0, {}, Text::CliLabelsList, ListLabels},
        {"labels", "set", "ID TEXT", 2, 2, {}, Text::CliLabelsSet, SetLabel},
        {"labels", "reset", "", 0, 0, {}, Text::CliLabelsReset, ResetLabels},
        {"labels", "preset", "1|2", 1, 1, {}, Text::CliLabelsPreset, UseLabelPreset},
        {"defaults", "list", "", 0, 0, {ModeOption()}, Text::CliDefaultsList, ListDefaults},
        {"defaults", "show", "NAME", 1, 1, {ModeOption()}, Text::CliDefaultsShow, ShowDefault},
        {"defaults", "save", "NAME", 1, 1, stored, Text::CliDefaultsSave, SaveDefault},
        {"defaults", "rename", "OLD NEW", 2, 2, {ModeOption()}, Text::CliDefaultsRename, RenameDefault},
        {"defaults", "delete", "NAME", 1, 1, {ModeOption()}, Text::CliDefaultsDelete, DeleteDefault},
        {"columns", "list", "time|expense", 1, 1, {ColumnSetOption()}, Text::CliColumnsList, ListColumns},
        {"columns", "set", kColumnWords, 1, kAnyNumber, columns, Text::CliColumnsSet, SetColumns},
        {"columns", "reset", "time|expense", 1, 1, {ColumnSetOption()}, Text::CliColumnsReset, ResetColumns},
        {"settings", "list", "", 0, 0, {}, Text::CliSettingsList, ListSettings},
        {"settings", "get", "NAME", 1, 1, {}, Text::CliSettingsGet, GetSetting},
        {"settings", "set", "NAME VALUE", 2, 2, {}, Text::CliSettingsSet, SetSetting},
        {"settings", "reset", "[NAME]", 0, 1, {}, Text::CliSettingsReset, ResetSettings},
        {"day", "", "DATE", 1, 1, {}, Text::CliDay, ShowDay},
        {"period", "list", "", 0, 0, {}, Text::CliPeriodList, ListPeriods},
        {"period", "show", "ID", 1, 1, {}, Text::CliPeriodShow, ShowPeriod},
        {"texts", "", "", 0, 0, {}, Text::CliTexts, ListTexts},
        {"doctor", "", "", 0, 0, {}, Text::CliDoctor, RunDoctor},
        {"demo", "fill", "N", 1, 1, {DemoOptions()}, Text::CliDemoFill, FillDemo},
    };
    rows.insert(rows.end(), std::begin(others), std::end(others));
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
