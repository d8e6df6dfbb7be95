#include "cli/arguments/ExpenseFields.h"

#include "cli/arguments/FieldParts.h"
#include "entry/ExpenseDraft.h"
#include "entry/NewListItems.h"

#include <memory>
#include <tuple>

namespace {

using namespace FieldParts;
using ExpenseEntryRules::Odometer;

/// An expense that is being entered, and the odometer while readings are.
struct Entry {
    ExpenseDraft draft;
    std::optional<Odometer> odometer;
    bool isStartCleared = false;  ///< then no start is suggested
    bool isEndCleared = false;

    [[nodiscard]] const CERecord& Record() const { return draft.Record(); }
    void EnterDate(const std::optional<DateTimeVal>& day) { draft.EnterDate(day); }
    void EnterItem(QString CERecord::*item, const QString& text) { draft.EnterItem(item, text); }
    void EnterNotes(const QString& notes) { draft.EnterNotes(notes); }
};

/// The sentence that refuses what is no number; empty for one. -1 stands for none in what is stored.
template <auto Field>
QString CheckNumber(const Entry& entry, const QString& typed, const FieldContext& context) {
    const auto number = EnteredValues::ReadSignedNumber(typed, context.region);
    DecimalField field;
    field.precision = (entry.Record().*Field).precision;
    if (number) field.Set(static_cast<float>(*number));
    return number && field.value != -1.0F ? QString() : FormatText<Text::CliNoSignedNumber>(typed);
}

// --- Distance entry

QString EnterDistanceEntry(Entry& entry, const Entered& entered, const FieldContext&) {
    entry.draft.SwitchDistance(IsYes(entered));
    return {};
}

/// A distance that is entered by hand has no readings.
QString EnterDistance(Entry& entry, const Entered& entered, const FieldContext& context) {
    entry.draft.SetReading(&CERecord::odometerStart, QString());
    entry.draft.SetReading(&CERecord::odometerEnd, QString());
    if (!entered) {
        entry.draft.ClearDistance();
        return {};
    }
    entry.draft.SwitchDistance(true);
    std::ignore = entry.draft.EnterDistance(*entered);
    return CheckNumber<&CERecord::distance>(entry, *entered, context);
}

/// Clearing leaves the amount as it is.
QString EnterRate(Entry& entry, const Entered& entered, const FieldContext& context) {
    if (!entered) {
        entry.draft.ClearRate();
        return {};
    }
    entry.draft.SwitchDistance(true);
    std::ignore = entry.draft.EnterRate(*entered);
    return CheckNumber<&CERecord::rate>(entry, *entered, context);
}

// --- Odometer

/// Opens the odometer on what the page shows.
Odometer& OdometerOf(Entry& entry, const FieldContext& context) {
    if (entry.odometer) return *entry.odometer;
    entry.draft.SwitchDistance(true);
    entry.odometer = entry.draft.OpenOdometer(context.settings);
    if (entry.isStartCleared) entry.odometer->start.clear();
    if (entry.isEndCleared) entry.odometer->end.clear();
    return *entry.odometer;
}

void CloseOdometer(Entry& entry, const FieldContext& context) {
    if (!entry.odometer) return;
    entry.draft.AcceptOdometer(*entry.odometer, context.settings);
    entry.odometer.reset();
}

/// An empty text is no reading; a cleared one leaves the distance as it is.
template <QString Odometer::*Reading, QString CERecord::*Field>
QString EnterReading(Entry& entry, const Entered& entered, const FieldContext& context) {
    if (!entered) {
        entry.draft.SetReading(Field, QString());
        return {};
    }
    const QString typed = entered->trimmed();
    if (!typed.isEmpty() && !EnteredValues::ReadNumber(typed, context.region))
        return FormatText<Text::CliNoNumber>(typed);
    Odometer& odometer = OdometerOf(entry, context);
    odometer.*Reading = typed;
    ExpenseEntryRules::ReadingsChanged(odometer);
    return {};
}

// --- Amount and flags

FieldProblem UnlessComputed(const Entry& entry, const Entered& entered, const FieldContext&) {
    if (!entered || !entry.draft.IsDistance()) return {};
    return {ExitCode::Usage, LoadText(Text::CliAmountComputed)};
}

QString EnterAmount(Entry& entry, const Entered& entered, const FieldContext& context) {
    CloseOdometer(entry, context);
    std::ignore = entry.draft.EnterAmount(entered.value_or(QString()));
    return entered ? CheckNumber<&CERecord::amount>(entry, *entered, context) : QString();
}

template <bool CERecord::*Flag>
QString EnterFlag(Entry& entry, const Entered& entered, const FieldContext&) {
    entry.draft.SwitchFlag(Flag, IsYes(entered));
    return {};
}

/// A flag that needs another one.
template <bool CERecord::*Flag>
FieldProblem UnlessMissing(const Entry& entry, const Entered& entered, const FieldContext&) {
    if (!IsYes(entered) || entry.draft.MaySetFlag(Flag)) return {};
    const char* needed = Flag == &CERecord::flag2 ? "flag1" : "flag3";
    return {ExitCode::Usage, FormatText<Text::CliFlagNeeds>(QString::fromLatin1(needed))};
}

template <auto Field>
constexpr auto kEnterText = EnterText<Entry, Field>;
using enum OptionShape;

constexpr RecordField<Entry> kFields[] = {
    {.option = {"date", "DATE", Value, Text::CliOptDate}, .canBeCleared = false, .enter = EnterDate<Entry>},
    {.option = {"item1", "TEXT", Value, Text::CliOptExpItem1}, .enter = kEnterText<&CERecord::item1>},
    {.option = {"item2", "TEXT", Value, Text::CliOptExpItem2}, .enter = kEnterText<&CERecord::item2>},
    {.option = {"item3", "TEXT", Value, Text::CliOptExpItem3}, .enter = kEnterText<&CERecord::item3>},
    {.option = {"item4", "TEXT", Value, Text::CliOptExpItem4}, .enter = kEnterText<&CERecord::item4>},
    {.option = {"item5", "TEXT", Value, Text::CliOptItem5}, .enter = kEnterText<&CERecord::item5>},
    {.option = {"notes", "TEXT", Value, Text::CliOptNotes}, .enter = EnterNotes<Entry>},
    {.option = {"distance-entry", "", YesNo, Text::CliOptDistanceEntry},
     .canBeCleared = false,
     .enter = EnterDistanceEntry},
    {.option = {"distance", "NUMBER", Value, Text::CliOptDistance}, .enter = EnterDistance},
    {.option = {"rate", "NUMBER", Value, Text::CliOptDistanceRate}, .enter = EnterRate},
    {.option = {"odometer-start", "NUMBER", Value, Text::CliOptOdometerStart},
     .enter = EnterReading<&Odometer::start, &CERecord::odometerStart>},
    {.option = {"odometer-end", "NUMBER", Value, Text::CliOptOdometerEnd},
     .enter = EnterReading<&Odometer::end, &CERecord::odometerEnd>},
    {.option = {"amount", "NUMBER", Value, Text::CliOptExpAmount},
     .enter = EnterAmount,
     .mayEnter = UnlessComputed},
    {.option = {"flag1", "", YesNo, Text::CliOptFlag1}, .enter = EnterFlag<&CERecord::flag1>},
    {.option = {"flag2", "", YesNo, Text::CliOptFlag2},
     .enter = EnterFlag<&CERecord::flag2>,
     .mayEnter = UnlessMissing<&CERecord::flag2>},
    {.option = {"flag3", "", YesNo, Text::CliOptFlag3}, .enter = EnterFlag<&CERecord::flag3>},
    {.option = {"flag4", "", YesNo, Text::CliOptFlag4},
     .enter = EnterFlag<&CERecord::flag4>,
     .mayEnter = UnlessMissing<&CERecord::flag4>},
    {.option = {"flag5", "", YesNo, Text::CliOptFlag5}, .enter = EnterFlag<&CERecord::flag5>},
};

constexpr auto kOptions = OptionsOf(kFields);
constexpr const char* kDistanceOptions[] = {"distance", "rate", "odometer-start", "odometer-end"};

/// A plain amount and what makes a distance entry don't go together.
FieldProblem CheckPlain(const CArguments& arguments) {
    const auto wanted = arguments.Value("distance-entry");
    if (!wanted || IsYes(wanted)) return {};
    for (const char* option : kDistanceOptions)
        if (arguments.Has(option))
            return {ExitCode::Usage, FormatText<Text::CliPlainWithDistance>(QString::fromLatin1(option))};
    return {};
}

}  // namespace

std::span<const OptionRow> ExpenseFieldOptions() {
    return kOptions;
}

EnteredFields EnterExpenseFields(CERecord& record, const CArguments& arguments, const FieldContext& context) {
    if (FieldProblem problem = CheckPlain(arguments); problem.exit != ExitCode::Done)
        return {std::move(problem), {}, {}};
    const QStringList cleared = arguments.Values("clear");
    const auto entry = std::make_shared<Entry>();
    entry->isStartCleared = cleared.contains(u"odometer-start");
    entry->isEndCleared = cleared.contains(u"odometer-end");
    entry->draft.Begin(record);
    EnteredFields entered{EnterAll<Entry>(kFields, *entry, arguments, context), {}, {}};
    if (entered.problem.exit != ExitCode::Done) return entered;
    CloseOdometer(*entry, context);
    entered.notes = NotesOf(entry->draft.Findings());
    entry->draft.Accept(NewListItems());
    record.Copy(entry->Record());
    entered.addToLists = [entry](const NewListItems& lists) { entry->draft.AddEntered(lists); };
    return entered;
}
