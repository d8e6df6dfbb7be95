#include "entry/QuickEntry.h"

#include "app/CTimerService.h"
#include "app/CVelmarchDoc.h"
#include "calendar/NumberText.h"
#include "config/Settings.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

namespace {

using namespace QuickFlag;

/// The one selected record; null unless exactly one is selected.
const CVORec* Selected(RecordKind kind, const QuickEntryContext& context) {
    return context.selectedIds.size() == 1 ? context.document.FetchRecord(kind, context.selectedIds.first())
                                           : nullptr;
}

enum class Base { Filled, Cancelled, Failed };

/// A copy takes every field, times, duration and break too.
template <class Record>
Base CopySelected(Record& record, const QuickEntryContext& context) {
    const CVORec* base = Selected(record.Kind(), context);
    if (!base) return Base::Failed;
    record.Copy(static_cast<const Record&>(*base));
    return Base::Filled;
}

Base FilledBy(const QuickEntryContext::Step& fill, CVORec& record) {
    return fill && fill(record) ? Base::Filled : Base::Failed;
}

template <class Record>
Base FillFromBase(Record& record, int flags, const QuickEntryContext& context) {
    if (flags & kDefaults) {
        if (!context.fillFromDefaults) return Base::Failed;
        return context.fillFromDefaults(record) ? Base::Filled : Base::Cancelled;
    }
    if (flags & kTree) return FilledBy(context.fillFromTree, record);
    if (flags & kGiven) return FilledBy(context.fillGiven, record);
    return flags & kCopy ? CopySelected(record, context) : Base::Filled;
}

void PutDate(RecordDate& date, const DateTimeVal& day) {
    date.Set(day.month, day.day, day.year);
}

/// A single date that can't be read leaves the date unset; yesterday is yesterday; any other period is today.
void DateFromPeriod(RecordDate& date, const PeriodFilter& period, const QuickEntryContext& context) {
    if (period.preset == PeriodCode::kSingleDate) {
        SYSTEMTIME day;
        date.Reset();
        if (ParseDate(context.document.GetPeriodContext().region, period.startText, day))
            date.Set(day.wMonth, day.wDay, day.wYear);
        return;
    }
    DateTimeVal day;
    day.SetToday(context.clock);
    if (period.preset == PeriodCode::kYesterday) day.SubtractDays(1);
    PutDate(date, day);
}

/// Date and start are now; the time isn't rounded.
void Timestamp(CTRecord& record, const CClock& clock) {
    DateTimeVal now;
    now.SetNow(clock);
    PutDate(record.date, now);
    record.SetStart(now);
}

/// The date of the other record, and its end as start, a minute later if so set. Past midnight the date
/// stays: after 11:59 PM comes 12:00 AM of the same date. A record without an end gives one without a start.
bool Succeed(CTRecord& record, const QuickEntryContext& context) {
    const CVORec* fetched = context.successiveId.isEmpty()
                                ? Selected(RecordKind::Time, context)
                                : context.document.FetchRecord(RecordKind::Time, context.successiveId);
    if (!fetched) return false;
    const auto& former = static_cast<const CTRecord&>(*fetched);
    record.date.Copy(former.date);
    if (!former.HasEnd()) {
        record.ClearStart();
        return true;
    }
    DateTimeVal start;
    start.SetTime(former.endHour, former.endMinute, former.endIsPm);
    if (context.settings.addMinuteOnSuccessive) start.AddMinutes(1);
    record.SetStart(start);
    return true;
}

bool FillDateAndStart(CTRecord& record, int flags, const QuickEntryContext& context) {
    if (flags & kTimestamp) Timestamp(record, context.clock);
    if (flags & kSuccessive) return Succeed(record, context);
    if (!(flags & kTimestamp)) DateFromPeriod(record.date, context.document.Filter(), context);
    return true;
}

/// An expense that follows another takes nothing from it: there is no start.
bool FillDateAndStart(CERecord& record, int flags, const QuickEntryContext& context) {
    if (!(flags & kTimestamp)) {
        DateFromPeriod(record.date, context.document.FilterOfExpenses(), context);
        return true;
    }
    DateTimeVal today;
    today.SetToday(context.clock);
    PutDate(record.date, today);
    return true;
}

/// What makes a record at once, where the dialog is switched off for it.
template <class Record>
constexpr int kQuick = kTimestamp | kSuccessive;
template <>
constexpr int kQuick<CTRecord> = kTimestamp | kSuccessive | kTimer;

template <class Record>
bool OpensDialog(int flags, const QuickEntryContext& context) {
    const bool isQuick = flags & kQuick<Record>;
    return context.edit && (!isQuick || context.settings.dialogOnQuickEntry);
}

QuickOutcome Added(const CVORec& record) {
    return {.succeeded = true, .addedId = record.GetId()};
}

/// Adds the record as edited, unless the user cancels. One that can't be stored comes back to the dialog.
QuickOutcome FinishInDialog(CVORec& record, const QuickEntryContext& context) {
    bool isRefused = false;
    while (context.edit(record)) {
        if (context.add(record)) return Added(record);
        isRefused = true;
    }
    return {.succeeded = !isRefused, .addedId = {}};
}

/// The steps up to the identity; false when the command ends there, with its outcome set.
template <class Record>
bool Begin(Record& record, int flags, const QuickEntryContext& context, QuickOutcome& outcome) {
    const Base base = FillFromBase(record, flags, context);
    outcome.succeeded = base == Base::Cancelled;
    if (base != Base::Filled || !FillDateAndStart(record, flags, context)) return false;
    record.GenUnique();
    return true;
}

/// False, and no timer, when another one could not be paused or stopped before.
bool StartTimer(const QString& id, const QuickEntryContext& context) {
    return context.timers.RunNewTimerAction() && context.timers.StartFromZero(id);
}

/// The timer goes with a record that isn't added. The dialog may have started one as well.
QuickOutcome FinishTimed(CTRecord& record, const QuickEntryContext& context) {
    const QString id = record.GetId();
    QuickOutcome outcome = FinishInDialog(record, context);
    if (outcome.addedId.isEmpty())
        static_cast<void>(context.timers.Drop(id));  // it was never saved
    else
        outcome.lacksTimer = !context.timers.Keep(id);
    return outcome;
}

/// A timer that can't be started leaves the dialog without one.
QuickOutcome TimedInDialog(CTRecord& record, int flags, const QuickEntryContext& context) {
    const bool isStarted = !(flags & kTimer) || StartTimer(record.GetId(), context);
    QuickOutcome outcome = FinishTimed(record, context);
    const bool lacksIt = !isStarted && !context.timers.HasTimer(record.GetId());
    outcome.lacksTimer = !outcome.addedId.isEmpty() && (outcome.lacksTimer || lacksIt);
    return outcome;
}

QuickOutcome AddedWithTimer(const CTRecord& record, int flags, const QuickEntryContext& context) {
    QuickOutcome outcome = Added(record);
    outcome.lacksTimer = (flags & kTimer) && !StartTimer(record.GetId(), context);
    return outcome;
}

}  // namespace

QuickOutcome NewTimeRecord(int flags, const QuickEntryContext& context) {
    CTRecord record;
    QuickOutcome outcome;
    if (!Begin(record, flags, context, outcome)) return outcome;
    if (!OpensDialog<CTRecord>(flags, context)) {
        if (context.add(record)) return AddedWithTimer(record, flags, context);
        if (!context.edit) return {.addedId = {}};
    }
    return TimedInDialog(record, flags, context);
}

QuickOutcome TakeUpTimeRecord(CTRecord& record, const QuickEntryContext& context) {
    return FinishTimed(record, context);
}

QuickOutcome NewExpenseRecord(int flags, const QuickEntryContext& context) {
    CERecord record;
    QuickOutcome outcome;
    if (!Begin(record, flags, context, outcome)) return outcome;
    if (!OpensDialog<CERecord>(flags, context)) {
        if (context.add(record)) return Added(record);
        if (!context.edit) return {.addedId = {}};
    }
    return FinishInDialog(record, context);
}
