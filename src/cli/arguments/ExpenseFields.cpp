#include "cli/arguments/ExpenseFields.h"

#include "cli/arguments/FieldParts.h"
#include "entry/ExpenseEntryRules.h"
#include "entry/KeepInLists.h"
#include "records/CERecord.h"

namespace {

using namespace FieldParts;
using namespace ExpenseEntryRules;

/// An expense with the two pages of its dialog: what was typed stays as typed until it is accepted as a
/// whole.
struct ExpenseDraft {
    CERecord& record;
    MoneyPage page;
    bool isPageTouched = false;
    std::optional<Odometer> odometer;  ///< while readings are being entered
    bool isStartCleared = false;       ///< then no start is suggested
    bool isEndCleared = false;

    ExpenseDraft(CERecord& expense, const QStringList& cleared)
        : record(expense),
          isStartCleared(cleared.contains(u"odometer-start")),
          isEndCleared(cleared.contains(u"odometer-end")) {
        page.isDistance = expense.isDistance;
        page.distance = expense.distance.text;
        page.rate = expense.GetRateText();
        page.amount = expense.GetAmountText();
    }
    void ComputeAmount() {
        isPageTouched = true;
        if (page.isDistance) page.amount = UpdateDistanceAmount(page.distance, page.rate);
    }
};

/// The sentence that refuses what is no number; empty for one. -1 stands for none in what is stored.
template <auto Field>
QString CheckNumber(const ExpenseDraft& draft, const QString& typed, const FieldContext& context) {
    const auto number = EnteredValues::ReadSignedNumber(typed, context.region);
    DecimalField field;
    field.precision = (draft.record.*Field).precision;
    if (number) field.Set(static_cast<float>(*number));
    return number && field.value != -1.0F ? QString() : FormatText<Text::CliNoSignedNumber>(typed);
}

// --- Distance entry

/// As its box: turned off, it empties what the page shows.
QString EnterDistanceEntry(ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    MoneyPage& page = draft.page;
    if (!IsYes(entered) && page.isDistance) page.distance = page.rate = page.amount = QString();
    page.isDistance = IsYes(entered);
    draft.ComputeAmount();
    return {};
}

/// A distance that is entered by hand has no readings.
QString EnterDistance(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    const QString typed = entered.value_or(QString()).trimmed();
    if (entered)
        if (QString words = CheckNumber<&CERecord::distance>(draft, typed, context); !words.isEmpty())
            return words;
    Odometer byHand;
    DistanceChosen(byHand, typed);
    draft.record.odometerStart = byHand.start;
    draft.record.odometerEnd = byHand.end;
    draft.page.distance = byHand.distance;
    if (entered) draft.page.isDistance = true;
    if (!draft.page.isDistance) draft.record.distance.Reset();  // which the page of a plain amount leaves
    draft.ComputeAmount();
    return {};
}

/// Clearing leaves the amount as it is.
QString EnterRate(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    const QString typed = entered.value_or(QString()).trimmed();
    draft.isPageTouched = true;
    draft.page.rate = typed;
    if (!entered && !draft.page.isDistance) draft.record.rate.SetNone();  // as above
    if (!entered) return {};
    draft.page.isDistance = true;
    draft.ComputeAmount();
    return CheckNumber<&CERecord::rate>(draft, typed, context);
}

// --- Odometer

/// Opens the odometer on what the page shows.
Odometer& OdometerOf(ExpenseDraft& draft, const FieldContext& context) {
    if (draft.odometer) return *draft.odometer;
    TakeDistance(draft.record, draft.page.distance, draft.page.rate);
    draft.odometer = OpenOdometer(draft.record, context.settings);
    if (draft.isStartCleared) draft.odometer->start.clear();
    if (draft.isEndCleared) draft.odometer->end.clear();
    return *draft.odometer;
}

void CloseOdometer(ExpenseDraft& draft, const FieldContext& context) {
    if (!draft.odometer) return;
    AcceptOdometer(draft.record, *draft.odometer, context.settings);
    draft.odometer.reset();
    draft.page.distance = draft.record.distance.text;
    draft.page.rate = draft.record.GetRateText();
    draft.ComputeAmount();
}

/// An empty text is no reading; a cleared one leaves the distance as it is.
template <QString Odometer::*Reading, QString CERecord::*Field>
QString EnterReading(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    if (!entered) {
        draft.record.*Field = QString();
        return {};
    }
    const QString typed = entered->trimmed();
    if (!typed.isEmpty() && !EnteredValues::ReadNumber(typed, context.region))
        return FormatText<Text::CliNoNumber>(typed);
    Odometer& odometer = OdometerOf(draft, context);
    odometer.*Reading = typed;
    ReadingsChanged(odometer);
    draft.page.isDistance = true;
    return {};
}

// --- Amount and flags

FieldProblem UnlessComputed(const ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    if (!entered || !draft.page.isDistance) return {};
    return {ExitCode::Usage, LoadText(Text::CliAmountComputed)};
}

QString EnterAmount(ExpenseDraft& draft, const Entered& entered, const FieldContext& context) {
    CloseOdometer(draft, context);
    draft.isPageTouched = true;
    draft.page.amount = entered.value_or(QString()).trimmed();
    return entered ? CheckNumber<&CERecord::amount>(draft, draft.page.amount, context) : QString();
}

/// Turning a flag off clears the one that needs it.
template <bool ItemsPage::*Flag>
QString EnterFlag(ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    CERecord& record = draft.record;
    ItemsPage page{record.item1, record.item2, record.item3, record.item4, record.flag1,
                   record.flag2, record.flag3, record.flag4, record.flag5};
    page.*Flag = IsYes(entered);
    AcceptItemsPage(record, page, KeepInLists());
    return {};
}

FieldProblem Needs(const Entered& entered, bool first, const char* name) {
    if (!IsYes(entered) || first) return {};
    return {ExitCode::Usage, FormatText<Text::CliFlagNeeds>(QString::fromLatin1(name))};
}
FieldProblem NeedsFlag1(const ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    return Needs(entered, draft.record.flag1, "flag1");
}
FieldProblem NeedsFlag3(const ExpenseDraft& draft, const Entered& entered, const FieldContext&) {
    return Needs(entered, draft.record.flag3, "flag3");
}

template <auto Field, int Longest = kTextLength>
constexpr auto kEnterText = EnterText<ExpenseDraft, Field, Longest>;
using enum OptionShape;

constexpr RecordField<ExpenseDraft> kFields[] = {
    {{"date", "DATE", Value, Text::CliOptDate}, false, EnterDate<ExpenseDraft>},
    {{"item1", "TEXT", Value, Text::CliOptExpItem1}, true, kEnterText<&CERecord::item1>},
    {{"item2", "TEXT", Value, Text::CliOptExpItem2}, true, kEnterText<&CERecord::item2>},
    {{"item3", "TEXT", Value, Text::CliOptExpItem3}, true, kEnterText<&CERecord::item3>},
    {{"item4", "TEXT", Value, Text::CliOptExpItem4}, true, kEnterText<&CERecord::item4>},
    {{"item5", "TEXT", Value, Text::CliOptItem5}, true, kEnterText<&CERecord::item5>},
    {{"notes", "TEXT", Value, Text::CliOptNotes}, true, kEnterText<&CERecord::notes, kLongTextLength>},
    {{"distance-entry", "", YesNo, Text::CliOptDistanceEntry}, false, EnterDistanceEntry},
    {{"distance", "NUMBER", Value, Text::CliOptDistance}, true, EnterDistance},
    {{"rate", "NUMBER", Value, Text::CliOptDistanceRate}, true, EnterRate},
    {{"odometer-start", "NUMBER", Value, Text::CliOptOdometerStart},
     true,
     EnterReading<&Odometer::start, &CERecord::odometerStart>},
    {{"odometer-end", "NUMBER", Value, Text::CliOptOdometerEnd},
     true,
     EnterReading<&Odometer::end, &CERecord::odometerEnd>},
    {{"amount", "NUMBER", Value, Text::CliOptExpAmount}, true, EnterAmount, UnlessComputed},
    {{"flag1", "", YesNo, Text::CliOptFlag1}, true, EnterFlag<&ItemsPage::flag1>},
    {{"flag2", "", YesNo, Text::CliOptFlag2}, true, EnterFlag<&ItemsPage::flag2>, NeedsFlag1},
    {{"flag3", "", YesNo, Text::CliOptFlag3}, true, EnterFlag<&ItemsPage::flag3>},
    {{"flag4", "", YesNo, Text::CliOptFlag4}, true, EnterFlag<&ItemsPage::flag4>, NeedsFlag3},
    {{"flag5", "", YesNo, Text::CliOptFlag5}, true, EnterFlag<&ItemsPage::flag5>},
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

void AcceptPage(ExpenseDraft& draft) {
    if (!draft.isPageTouched) return;
    const RecordDate& date = draft.record.date;
    draft.page.month = date.month;
    draft.page.day = date.day;
    draft.page.year = date.year;
    draft.page.item5 = draft.record.item5;
    AcceptMoneyPage(draft.record, draft.page, KeepInLists());
}

}  // namespace

std::span<const OptionRow> ExpenseFieldOptions() {
    return kOptions;
}

FieldProblem EnterExpenseFields(CERecord& record, const CArguments& arguments, const FieldContext& context) {
    if (FieldProblem problem = CheckPlain(arguments); problem.exit != ExitCode::Done) return problem;
    ExpenseDraft draft(record, arguments.Values("clear"));
    FieldProblem problem = EnterAll<ExpenseDraft>(kFields, draft, arguments, context);
    if (problem.exit != ExitCode::Done) return problem;
    CloseOdometer(draft, context);
    AcceptPage(draft);
    return {};
}
