#include "cli/arguments/TimeFields.h"

#include "app/CTimerService.h"
#include "cli/arguments/FieldParts.h"
#include "entry/TimeEntryRules.h"
#include "records/CTRecord.h"

namespace {

using namespace FieldParts;
using namespace TimeEntryRules;

/// A time record's own rules need nothing beside it.
struct TimeDraft {
    CTRecord& record;
};

QString EnterBillable(TimeDraft& draft, const Entered& entered, const FieldContext&) {
    draft.record.SetBillable(IsYes(entered));
    return {};
}

QString EnterBilled(TimeDraft& draft, const Entered& entered, const FieldContext&) {
    draft.record.isBilled = IsYes(entered);
    return {};
}

using TimeRule = void (*)(CTRecord&, const std::optional<DateTimeVal>&, const Settings&);

template <TimeRule Rule>
QString EnterTime(TimeDraft& draft, const Entered& entered, const FieldContext& context) {
    const auto time = entered ? EnteredValues::ReadTime(*entered) : std::nullopt;
    if (entered && !time) return FormatText<Text::CliNoTime>(*entered);
    Rule(draft.record, time, context.settings);
    return {};
}

void DurationRule(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings) {
    EnterDuration(record, span, settings);
}

using SpanRule = void (*)(CTRecord&, const std::optional<EnteredSpan>&, const Settings&);

template <SpanRule Rule>
QString EnterSpan(TimeDraft& draft, const Entered& entered, const FieldContext& context) {
    const auto span = entered ? EnteredValues::ReadSpan(*entered, context.region) : std::nullopt;
    if (entered && !span) return FormatText<Text::CliNoSpan>(*entered);
    Rule(draft.record, span, context.settings);
    return {};
}

using MoneyRule = bool (*)(CTRecord&, const QString&);
using MoneySetter = bool (CTRecord::*)(float);

/// Clearing goes by the setter: a value below zero is none, and its partner stays as it is.
template <MoneyRule Rule, MoneySetter Set>
QString EnterMoney(TimeDraft& draft, const Entered& entered, const FieldContext& context) {
    if (!entered) {
        (void)(draft.record.*Set)(-1.0F);  // false says that there is no value now, as it was wanted
        return {};
    }
    const bool isNumber = EnteredValues::ReadNumber(*entered, context.region).has_value();
    if (isNumber && Rule(draft.record, entered->trimmed())) return {};
    return FormatText<Text::CliNoNumber>(*entered);
}

/// Times are driven by the record's timer while it has one.
FieldProblem UnlessTimed(const TimeDraft& draft, const Entered&, const FieldContext& context) {
    if (!context.timers || MayEnterTimes(*context.timers, draft.record.GetId(), nullptr)) return {};
    return {ExitCode::Failed, LoadText(Text::TimesDrivenByTimer)};
}

FieldProblem IfBillable(const TimeDraft& draft, const Entered& entered, const FieldContext&) {
    if (!entered || draft.record.isBillable) return {};
    return {ExitCode::Usage, LoadText(Text::CliNotBillable)};
}

template <auto Field, int Longest = kTextLength>
constexpr auto kEnterText = EnterText<TimeDraft, Field, Longest>;
using enum OptionShape;

constexpr RecordField<TimeDraft> kFields[] = {
    {{"date", "DATE", Value, Text::CliOptDate}, false, EnterDate<TimeDraft>},
    {{"item1", "TEXT", Value, Text::CliOptItem1}, true, kEnterText<&CTRecord::item1>},
    {{"item2", "TEXT", Value, Text::CliOptItem2}, true, kEnterText<&CTRecord::item2>},
    {{"item3", "TEXT", Value, Text::CliOptItem3}, true, kEnterText<&CTRecord::item3>},
    {{"item4", "TEXT", Value, Text::CliOptItem4}, true, kEnterText<&CTRecord::item4>},
    {{"item5", "TEXT", Value, Text::CliOptItem5}, true, kEnterText<&CTRecord::item5>},
    {{"notes", "TEXT", Value, Text::CliOptNotes}, true, kEnterText<&CTRecord::notes, kLongTextLength>},
    {{"billable", "", YesNo, Text::CliOptBillable}, true, EnterBillable},
    {{"start", "TIME", Value, Text::CliOptStart}, true, EnterTime<EnterStart>, UnlessTimed},
    {{"end", "TIME", Value, Text::CliOptEnd}, true, EnterTime<EnterEnd>, UnlessTimed},
    {{"duration", "SPAN", Value, Text::CliOptDuration}, true, EnterSpan<DurationRule>, UnlessTimed},
    {{"break", "SPAN", Value, Text::CliOptBreak}, true, EnterSpan<EnterBreak>, UnlessTimed},
    {{"rate", "NUMBER", Value, Text::CliOptRate},
     true,
     EnterMoney<EnterRate, &CTRecord::SetRate>,
     IfBillable},
    {{"amount", "NUMBER", Value, Text::CliOptAmount},
     true,
     EnterMoney<EnterAmount, &CTRecord::SetAmount>,
     IfBillable},
    {{"billed", "", YesNo, Text::CliOptBilled}, true, EnterBilled, IfBillable},
};

constexpr auto kOptions = OptionsOf(kFields);

}  // namespace

std::span<const OptionRow> TimeFieldOptions() {
    return kOptions;
}

FieldProblem EnterTimeFields(CTRecord& record, const CArguments& arguments, const FieldContext& context) {
    TimeDraft draft{record};
    return EnterAll<TimeDraft>(kFields, draft, arguments, context);
}
