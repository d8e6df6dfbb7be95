#include "cli/arguments/ExpenseFields.h"

#include "cli/arguments/FieldParts.h"
#include "entry/ExpenseDraft.h"
#include "entry/NewListItems.h"

#include <memory>
#include <tuple>

namespace {

using namespace FieldParts;
using ExpenseEntryRules::Odometer;

/// The sentence that refuses what is no number; empty for one. -1 stands for none in what is stored.
template <auto Field>
QString CheckNumber(const ExpenseDraft& draft, const QString& typed, const FieldContext& context) {
    const auto number = EnteredValues::ReadSignedNumber(typed, context.region);
    DecimalField field;
    field.precision = (draft.Record().*Field).precision;
    if (number) field.Set(static_cast<float>(*number));
    return number && field.value != -1.0F ? QString() : FormatText<Text::CliNoSignedNumber>(typed);
}

// --- Distance entry

QString EnterDistanceEntry(ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    draft.SwitchDistance(IsYes(entered));
    return {};
}

QString EnterDistance(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    draft.DropReadings();
    if (!entered) {
        draft.ClearDistance();
        return {};
    }
    draft.SwitchDistance(true);
    std::ignore = draft.EnterDistance(*entered);
    return CheckNumber<&CERecord::distance>(draft, *entered, context);
}

/// Clearing leaves the amount as it is.
QString EnterRate(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    if (!entered) {
        draft.ClearRate();
        return {};
    }
    draft.SwitchDistance(true);
    std::ignore = draft.EnterRate(*entered);
    return CheckNumber<&CERecord::rate>(draft, *entered, context);
}

// --- Odometer

/// An empty text is no reading.
template <QString Odometer::*Reading, QString CERecord::*Field>
QString EnterReading(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    if (!entered) {
        draft.ClearReading(Field);
        return {};
    }
    const QString typed = entered->trimmed();
    if (!typed.isEmpty() && !EnteredValues::ReadNumber(typed, context.region))
        return FormatText<Text::CliNoNumber>(typed);
    draft.EnterReading(Reading, typed, context.settings);
    return {};
}

// --- Amount and flags

FieldProblem UnlessComputed(const ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    if (!entered || !draft.IsDistance()) return {};
    return {ExitCode::Usage, LoadText(Text::CliAmountComputed)};
}

QString EnterAmount(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    draft.EndReadings(context.settings);
    std::ignore = draft.EnterAmount(entered.value_or(QString()));
    return entered ? CheckNumber<&CERecord::amount>(draft, *entered, context) : QString();
}

template <bool CERecord::*Flag>
QString EnterFlag(ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    draft.SwitchFlag(Flag, IsYes(entered));
    return {};
}

/// A flag that needs another one.
template <bool CERecord::*Flag>
FieldProblem UnlessMissing(const ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    if (!IsYes(entered) || draft.MaySetFlag(Flag)) return {};
    const char* needed = Flag == &CERecord::flag2 ? "flag1" : "flag3";
    return {ExitCode::Usage, FormatText<Text::CliFlagNeeds>(QString::fromLatin1(needed))};
}

template <auto Field>
constexpr auto kEnterText = EnterText<ExpenseDraft, Field>;
using enum OptionShape;

constexpr RecordField<ExpenseDraft> kFields[] = {
    {.option = {"date", "DATE", Value, Text::CliOptDate},
     .canBeCleared = false,
     .enter = EnterDate<ExpenseDraft>},
    {.option = {"item1", "TEXT", Value, Text::CliOptExpItem1}, .enter = kEnterText<&CERecord::item1>},
    {.option = {"item2", "TEXT", Value, Text::CliOptExpItem2}, .enter = kEnterText<&CERecord::item2>},
    {.option = {"item3", "TEXT", Value, Text::CliOptExpItem3}, .enter = kEnterText<&CERecord::item3>},
    {.option = {"item4", "TEXT", Value, Text::CliOptExpItem4}, .enter = kEnterText<&CERecord::item4>},
    {.option = {"item5", "TEXT", Value, Text::CliOptItem5}, .enter = kEnterText<&CERecord::item5>},
    {.option = {"notes", "TEXT", Value, Text::CliOptNotes}, .enter = EnterNotes<ExpenseDraft>},
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
    const auto draft = std::make_shared<ExpenseDraft>();
    draft->Begin(record);
    // A reading that goes isn't there any more when the other one is entered.
    const QStringList cleared = arguments.Values("clear");
    if (cleared.contains(u"odometer-start")) draft->ClearReading(&CERecord::odometerStart);
    if (cleared.contains(u"odometer-end")) draft->ClearReading(&CERecord::odometerEnd);
    EnteredFields entered{EnterAll<ExpenseDraft>(kFields, *draft, arguments, context), {}, {}};
    if (entered.problem.exit != ExitCode::Done) return entered;
    draft->EndReadings(context.settings);
    entered.notes = NotesOf(draft->Findings());
    draft->Accept(NewListItems());
    entered.notes += NewlyUnlikely(record, draft->Record());
    record.Copy(draft->Record());
    entered.addToLists = [draft](const NewListItems& lists) { draft->AddEntered(lists); };
    return entered;
}
