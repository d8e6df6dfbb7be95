#include "cli/arguments/TimeFields.h"

#include "app/CTimerService.h"
#include "cli/arguments/FieldParts.h"
#include "entry/TimeDraft.h"

#include <memory>

namespace {

using namespace FieldParts;

constexpr int kEnd = 4;

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

/// Times are driven by the record's timer while it has one; it would write its count over them.
FieldProblem UnlessTimed(const TimeDraft& draft, const Entered&, const FieldContext& context) {
    if (!context.areTimersKnown) return {ExitCode::Failed, LoadText(Text::CliTimersUnread)};
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
    {.option = {"date", "DATE", Value, Text::CliOptDate},
     .canBeCleared = false,
     .enter = EnterDate<TimeDraft>},
    {.option = {"item1", "TEXT", Value, Text::CliOptItem1}, .enter = kEnterText<&CTRecord::item1>},
    {.option = {"item2", "TEXT", Value, Text::CliOptItem2}, .enter = kEnterText<&CTRecord::item2>},
    {.option = {"item3", "TEXT", Value, Text::CliOptItem3}, .enter = kEnterText<&CTRecord::item3>},
    {.option = {"item4", "TEXT", Value, Text::CliOptItem4}, .enter = kEnterText<&CTRecord::item4>},
    {.option = {"item5", "TEXT", Value, Text::CliOptItem5}, .enter = kEnterText<&CTRecord::item5>},
    {.option = {"notes", "TEXT", Value, Text::CliOptNotes}, .enter = EnterNotes<TimeDraft>},
    {.option = {"billable", "", YesNo, Text::CliOptBillable}, .enter = EnterBillable},
    {.option = {"start", "TIME", Value, Text::CliOptStart},
     .enter = EnterTime<&TimeDraft::EnterStart>,
     .mayEnter = UnlessTimed},
    {.option = {"end", "TIME", Value, Text::CliOptEnd},
     .enter = EnterTime<&TimeDraft::EnterEnd>,
     .mayEnter = UnlessTimed},
    {.option = {"duration", "SPAN", Value, Text::CliOptDuration},
     .enter = EnterSpan<&TimeDraft::EnterDuration>,
     .mayEnter = UnlessTimed},
    {.option = {"break", "SPAN", Value, Text::CliOptBreak},
     .enter = EnterSpan<&TimeDraft::EnterBreak>,
     .mayEnter = UnlessTimed},
    {.option = {"rate", "NUMBER", Value, Text::CliOptRate},
     .enter = EnterMoney<&TimeDraft::EnterRate, &TimeDraft::ClearRate>,
     .mayEnter = IfBillable},
    {.option = {"amount", "NUMBER", Value, Text::CliOptAmount},
     .enter = EnterMoney<&TimeDraft::EnterAmount, &TimeDraft::ClearAmount>,
     .mayEnter = IfBillable},
    {.option = {"billed", "", YesNo, Text::CliOptBilled}, .enter = EnterBilled, .mayEnter = IfBillable},
};

constexpr auto kOptions = OptionsOf(kFields);

/// Of start, end and duration the last rules. Who gives all three may have meant another end.
QStringList EndThatGaveWay(const CTRecord& before, const CTRecord& record, const CArguments& arguments,
                           const FieldContext& context) {
    const Entered end = arguments.Value("end");
    if (!end || !arguments.Value("duration")) return {};
    TimeDraft entered(context.settings);
    entered.Begin(before);
    entered.EnterEnd(EnteredValues::ReadTime(*end));
    const QString meant = TimeTextOfRecord(entered.Record(), kEnd), kept = TimeTextOfRecord(record, kEnd);
    if (meant == kept) return {};
    return {FormatText<Text::NoteEndMoved>(meant, kept)};
}

}  // namespace

std::span<const OptionRow> TimeFieldOptions() {
    return kOptions;
}

EnteredFields EnterTimeFields(CTRecord& record, const CArguments& arguments, const FieldContext& context) {
    const auto draft = std::make_shared<TimeDraft>(context.settings);
    draft->Begin(record);
    EnteredFields entered{EnterAll<TimeDraft>(kFields, *draft, arguments, context), {}, {}};
    if (entered.problem.exit != ExitCode::Done) return entered;
    entered.notes = NotesOf(draft->Findings()) + EndThatGaveWay(record, draft->Record(), arguments, context) +
                    NewlyUnlikely(record, draft->Record());
    record.Copy(draft->Record());
    entered.addToLists = [draft](const NewListItems& lists) { draft->AddEntered(lists); };
    return entered;
}
