#include "entry/TimeEntryRules.h"

#include "app/CTimerService.h"
#include "app/ListTable.h"
#include "calendar/NumberText.h"
#include "config/Settings.h"
#include "entry/NewListItems.h"
#include "entry/TypedFields.h"
#include "entry/TypedNumber.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "records/CTRecord.h"

namespace {

void RoundTime(DateTimeVal& time, int divisor, int type) {
    bool isPm = time.isPm != 0;
    RoundMinutes(time.hour12, time.minute, divisor, type, &isPm);
    time.isPm = isPm ? 1 : 0;
}

/// With the lock off and both times known, the other time stays and the duration is computed anew.
void ReleaseDuration(CTRecord& record, bool hasOtherTime, const Settings& settings) {
    if (record.spans.duration.IsSet() && hasOtherTime && !settings.lockDurationOnTimeEdit)
        record.spans.duration.Reset();
}

EnteredSpan Accumulated(const EnteredSpan& entered, const SpanField& former, const Settings& settings,
                        SpanSource source) {
    if (source == SpanSource::Stepped || !settings.accumulateOnReentry || !former.IsSet()) return entered;
    return {entered.hours + former.hours, entered.minutes + former.minutes};
}

/// Rounding of durations; breaks have none of their own.
EnteredSpan Rounded(EnteredSpan span, const Settings& settings) {
    RoundMinutes(span.hours, span.minutes, settings.roundDurationMinutes, settings.roundDurationType,
                 nullptr);
    return span;
}

void PutDuration(CTRecord& record, const EnteredSpan& span, const Settings& settings) {
    const bool isStartKept = record.HasStart() && record.HasEnd() && settings.lockStartOnDurationEdit;
    record.SetDuration(span.hours, span.minutes, !isStartKept);
}

/// As PutTyped; a negative number leaves "no value".
void PutTypedMoney(DecimalField& field, const QString& text) {
    PutTyped(field, text);
    if (field.value < 0.0F) field.SetNone();
}

/// A typed text and its list, in the order in which the lists take them.
struct TypedRow {
    ListItemRow<TimeEntryRules::EntryPage> item;
    bool CTRecord::*isComputed;  ///< null: only ever typed
};
using Page = TimeEntryRules::EntryPage;
constexpr TypedRow kTyped[] = {
    {{&Settings::keepTimeList109, ListId::kClient, &Page::item1}, nullptr},
    {{&Settings::keepTimeList110, ListId::kProject, &Page::item2}, nullptr},
    {{&Settings::keepTimeList113, ListId::kTimeRate, &Page::rate}, &CTRecord::rateIsDerived},
    {{&Settings::keepTimeList111, ListId::kTimeItem3, &Page::item3}, nullptr},
    {{&Settings::keepTimeList112, ListId::kTimeItem4, &Page::item4}, nullptr},
    {{&Settings::keepTimeList114, ListId::kItem5, &Page::item5}, nullptr},
    {{&Settings::keepTimeList115, ListId::kAmount, &Page::amount}, &CTRecord::amountIsDerived},
};

constexpr TimeEntryRules::EntryItem kItems[] = {
    {&CTRecord::item1, &Page::item1}, {&CTRecord::item2, &Page::item2}, {&CTRecord::item3, &Page::item3},
    {&CTRecord::item4, &Page::item4}, {&CTRecord::item5, &Page::item5},
};

}  // namespace

namespace TimeEntryRules {

std::span<const EntryItem> EntryItems() {
    return kItems;
}

bool MayEnterTimes(const CTimerService& timers, const QString& recordId, CPrompt* prompt) {
    const TimerState state = timers.StateOf(recordId);
    if (state != TimerState::Running && state != TimerState::Paused) return true;
    if (prompt) {
        MessageBox box;
        box.textId = static_cast<int>(Text::TimesDrivenByTimer);
        box.title = LoadText(Text::TimesDrivenByTimerTitle);
        box.text = LoadText(Text::TimesDrivenByTimer);
        box.icon = BoxIcon::Information;
        prompt->Tell(box);
    }
    return false;
}

void EnterStart(CTRecord& record, const std::optional<DateTimeVal>& time, const Settings& settings) {
    if (!time) return record.ClearStart();
    ReleaseDuration(record, record.HasEnd(), settings);
    DateTimeVal rounded = *time;
    RoundTime(rounded, settings.roundStartMinutes, settings.roundStartType);
    record.SetStart(rounded);
}

void EnterEnd(CTRecord& record, const std::optional<DateTimeVal>& time, const Settings& settings) {
    if (!time) return record.ClearEnd();
    ReleaseDuration(record, record.HasStart(), settings);
    DateTimeVal rounded = *time;
    RoundTime(rounded, settings.roundEndMinutes, settings.roundEndType);
    record.SetEnd(rounded);
}

void EnterDuration(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings,
                   SpanSource source) {
    if (!span) {
        record.spans.duration.Reset();
        record.spans.Recompute();  // the times stay, and so does the money
        return;
    }
    const EnteredSpan taken = Accumulated(*span, record.spans.duration, settings, source);
    PutDuration(record, Rounded(taken, settings), settings);
}

void EnterBreak(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings,
                SpanSource source) {
    if (!span) return record.SetBreak(-1, -1);
    const EnteredSpan taken = Rounded(Accumulated(*span, record.spans.breakTime, settings, source), settings);
    record.SetBreak(taken.hours, taken.minutes);
}

void SetFromTimer(CTRecord& record, int hours, int minutes, bool fromTimer, const Settings& settings) {
    const EnteredSpan count{hours, minutes};
    PutDuration(record, fromTimer ? count : Rounded(count, settings), settings);
}

bool EnterRate(CTRecord& record, const QString& text) {
    float value = 0.0F;
    if (!record.isBillable || !ReadTypedFloat(text, value)) return false;
    record.SetRate(value);  // its result tells of the amount, not of the rate
    return true;
}

bool EnterAmount(CTRecord& record, const QString& text) {
    float value = 0.0F;
    if (!record.isBillable || !ReadTypedFloat(text, value)) return false;
    record.SetAmount(value);
    return true;
}

void AcceptEntryPage(CTRecord& record, const EntryPage& page, const NewListItems& lists) {
    for (const EntryItem& row : kItems) record.*row.item = CutItem(page.*row.text);
    PutTypedMoney(record.rate, page.rate);
    PutTypedMoney(record.amount, page.amount);
    // Before the flags: a record that is no longer billable forgets what was computed.
    for (const TypedRow& row : kTyped)
        if (!row.isComputed || !(record.*row.isComputed)) lists.Add(row.item, page);
    record.SetBillable(page.isBillable);
    record.isBilled = page.isBillable && page.isBilled;
}

}  // namespace TimeEntryRules
