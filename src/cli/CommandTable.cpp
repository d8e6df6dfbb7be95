#include "cli/CommandTable.h"

#include "cli/CalendarCommands.h"
#include "cli/FilterArguments.h"
#include "cli/OtherCommands.h"
#include "cli/RecordCommands.h"
#include "cli/RecordFields.h"
#include "cli/SettingCommands.h"
#include "cli/TimerCommands.h"

#include <vector>

namespace {

constexpr GroupRow kGroups[] = {
    {"time", Text::CliGroupTime}, {"timer", Text::CliGroupTimer},   {"settings", Text::CliGroupSettings},
    {"day", Text::CliDay},        {"period", Text::CliGroupPeriod}, {"texts", Text::CliTexts},
    {"doctor", Text::CliDoctor},  {"demo", Text::CliGroupDemo},
};

constexpr OptionRow kGlobals[] = {
    {"home", "DIR", OptionShape::Value, Text::CliOptHome},
    {"json", "", OptionShape::Flag, Text::CliOptJson},
    {"yes", "", OptionShape::Flag, Text::CliOptYes},
    {"quiet", "", OptionShape::Flag, Text::CliOptQuiet},
    {"version", "", OptionShape::Flag, Text::CliOptVersion},
    {"help", "", OptionShape::Flag, Text::CliOptHelp},
};

constexpr RecordMode kTime = RecordMode::Time;

const std::vector<CommandRow>& Table() {
    static const std::vector<CommandRow> kTable{
        {"time", "add", "", 0, 0, {TimeFieldOptions()}, Text::CliTimeAdd, Of<kTime, AddRecord>},
        {"time",
         "edit",
         "ID",
         1,
         1,
         {TimeFieldOptions(), EditOptions()},
         Text::CliTimeEdit,
         Of<kTime, EditRecord>},
        {"time", "show", "ID", 1, 1, {}, Text::CliTimeShow, Of<kTime, ShowRecord>},
        {"time", "delete", "ID...", 1, kAnyNumber, {}, Text::CliTimeDelete, Of<kTime, DeleteRecords>},
        {"time", "copy", "ID...", 1, kAnyNumber, {}, Text::CliTimeCopy, Of<kTime, CopyRecords>},
        {"time",
         "mark",
         "ID...",
         1,
         kAnyNumber,
         {MarkOptions(RecordKind::Time)},
         Text::CliTimeMark,
         Of<kTime, MarkRecords>},
        {"time", "new", "", 0, 0, {NewOptions(RecordKind::Time)}, Text::CliTimeNew, Of<kTime, NewRecordFrom>},
        {"time",
         "list",
         "",
         0,
         0,
         {FilterOptions(RecordKind::Time), ListOptions()},
         Text::CliTimeList,
         Of<kTime, ListRecords>},
        {"timer", "start", "ID", 1, 1, {}, Text::CliTimerStart, StartTimer},
        {"timer", "pause", "ID", 1, 1, {}, Text::CliTimerPause, PauseTimer},
        {"timer", "stop", "ID", 1, 1, {}, Text::CliTimerStop, StopTimer},
        {"timer", "stop-all", "", 0, 0, {}, Text::CliTimerStopAll, StopAllTimers},
        {"timer", "pause-all", "", 0, 0, {}, Text::CliTimerPauseAll, PauseAllTimers},
        {"timer", "drop", "ID", 1, 1, {}, Text::CliTimerDrop, DropTimer},
        {"timer", "status", "", 0, 0, {}, Text::CliTimerStatus, ShowTimers},
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
    return kTable;
}

}  // namespace

std::span<const GroupRow> CommandGroups() {
    return kGroups;
}

std::span<const CommandRow> Commands() {
    return Table();
}

std::span<const OptionRow> GlobalOptions() {
    return kGlobals;
}
