#include "cli/arguments/TimeFields.h"

#include "app/CTimerService.h"
#include "cli/arguments/FieldParts.h"
#include "entry/TimeDraft.h"

#include <memory>

namespace {

using namespace FieldParts;

QString EnterBillable(TimeDraft& draft, const Entered& entered, const FieldContext&) {
    draft.SwitchBillable(IsYes(entered));
    return {};
}

QString EnterBilled(TimeDraft& draft, const Entered& entered, const FieldContext&) {
    draft.SwitchBilled(IsYes(entered));
    return {};
}

using TimeRule = void (TimeDraft::*)(const std::optional<DateTimeVal>&);

template <TimeRule Rule>
QString EnterTime(TimeDraft& draft, const Entered& entered, const FieldContext&) {
    const auto time = entered ? EnteredValues::ReadTime(*entered) : std::nullopt;
    if (entered && !time) return FormatText<Text::CliNoTime>(*entered);
    (draft.*Rule)(time);
    return {};
}

using SpanRule = void (TimeDraft::*)(const std::optional<EnteredSpan>&, SpanSource);

template <SpanRule Rule>
QString EnterSpan(TimeDraft& draft, const Entered& entered, const FieldContext& context) {
    const auto span = entered ? EnteredValues::ReadSpan(*entered, context.region) : std::nullopt;
    if (entered && !span) return FormatText<Text::CliNoSpan>(*entered);
    (draft.*Rule)(span, SpanSource::Entered);
    return {};
}

using MoneyRule = Typed (TimeDraft::*)(const QString&);
using MoneyClearing = void (TimeDraft::*)();

template <MoneyRule Rule, MoneyClearing Clear>
QString EnterMoney(TimeDraft& draft, const Entered& entered, const FieldContext& context) {
    if (!entered) {
        (draft.*Clear)();
        return {};
    }
    const bool isNumber = EnteredValues::ReadNumber(*entered, context.region).has_value();
    if (isNumber && (draft.*Rule)(*entered) == Typed::Value) return {};
    return FormatText<Text::CliNoNumber>(*entered);
}

/// Times are driven by the record's timer while it has one.
FieldProblem UnlessTimed(const TimeDraft& draft, const Entered&, const FieldContext& context) {
    if (!context.timers || TimeEntryRules::MayEnterTimes(*context.timers, draft.Record().GetId(), nullptr))
        return {};
    return {ExitCode::Failed, LoadText(Text::TimesDrivenByTimer)};
}

FieldProblem IfBillable(const TimeDraft& draft, const Entered& entered, const FieldContext&) {
    if (!entered || draft.Record().isBillable) return {};
    return {ExitCode::Usage, LoadText(Text::CliNotBillable)};
}

template <auto Field>
constexpr auto kEnterText = EnterText<TimeDraft, Field>;
using enum OptionShape;

constexpr RecordField<TimeDraft> kFields[] = {
    {{"date", "DATE", Value, Text::CliOptDate}, false, EnterDate<TimeDraft>},
    {{"item1", "TEXT", Value, Text::CliOptItem1}, true, kEnterText<&CTRecord::item1>},
    {{"item2", "TEXT", Value, Text::CliOptItem2}, true, kEnterText<&CTRecord::item2>},
    {{"item3", "TEXT", Value, Text::CliOptItem3}, true, kEnterText<&CTRecord::item3>},
    {{"item4", "TEXT", Value, Text::CliOptItem4}, true, kEnterText<&CTRecord::item4>},
    {{"item5", "TEXT", Value, Text::CliOptItem5}, true, kEnterText<&CTRecord::item5>},
    {{"notes", "TEXT", Value, Text::CliOptNotes}, true, EnterNotes<TimeDraft>},
    {{"billable", "", YesNo, Text::CliOptBillable}, true, EnterBillable},
    {{"start", "TIME", Value, Text::CliOptStart}, true, EnterTime<&TimeDraft::EnterStart>, UnlessTimed},
    {{"end", "TIME", Value, Text::CliOptEnd}, true, EnterTime<&TimeDraft::EnterEnd>, UnlessTimed},
    {{"duration", "SPAN", Value, Text::CliOptDuration},
     true,
     EnterSpan<&TimeDraft::EnterDuration>,
     UnlessTimed},
    {{"break", "SPAN", Value, Text::CliOptBreak}, true, EnterSpan<&TimeDraft::EnterBreak>, UnlessTimed},
    {{"rate", "NUMBER", Value, Text::CliOptRate},
     true,
     EnterMoney<&TimeDraft::EnterRate, &TimeDraft::ClearRate>,
     IfBillable},
    {{"amount", "NUMBER", Value, Text::CliOptAmount},
     true,
     EnterMoney<&TimeDraft::EnterAmount, &TimeDraft::ClearAmount>,
     IfBillable},
    {{"billed", "", YesNo, Text::CliOptBilled}, true, EnterBilled, IfBillable},
};

constexpr auto kOptions = OptionsOf(kFields);

}  // namespace

std::span<const OptionRow> TimeFieldOptions() {
    return kOptions;
}

EnteredFields EnterTimeFields(CTRecord& record, const CArguments& arguments, const FieldContext& context) {
    const auto draft = std::make_shared<TimeDraft>(context.settings);
    draft->Begin(record);
    EnteredFields entered{EnterAll<TimeDraft>(kFields, *draft, arguments, context), {}, {}};
    if (entered.problem.exit != ExitCode::Done) return entered;
    record.Copy(draft->Record());
    entered.notes = NotesOf(draft->Findings());
    entered.addToLists = [draft](const NewListItems& lists) { draft->AddEntered(lists); };
    return entered;
}
