#include "entry/QuickEntry.h"

#include "app/CTimerDesk.h"
#include "app/CVelmarchDoc.h"
#include "calendar/NumberText.h"
#include "config/Settings.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <algorithm>
#include <vector>

namespace {

using namespace QuickFlag;

constexpr QuickCommandRow kCommands[] = {
    {32852, kBlank | kTimestamp},
    {32853, kBlank | kTimestamp | kTimer},
    {32854, kBlank | kSuccessive},
    {32855, kBlank | kSuccessive | kTimer},
    {32856, kDefaults},
    {32857, kDefaults | kTimestamp},
    {32858, kDefaults | kTimestamp | kTimer},
    {32859, kDefaults | kSuccessive},
    {32860, kDefaults | kSuccessive | kTimer},
    {32861, kTree},
    {32862, kTree | kTimestamp},
    {32863, kTree | kTimestamp | kTimer},
    {32864, kCopy | kTimestamp},
    {32865, kCopy | kTimestamp | kTimer},
    {32866, kCopy | kSuccessive},
    {32867, kCopy | kSuccessive | kTimer},
    {40147, kBlank},
};

/// The one selected record; null unless exactly one is selected.
const CVORec* Selected(RecordKind kind, const QuickEntrySurroundings& around) {
    return around.selectedIds.size() == 1 ? around.document.FetchRecord(kind, around.selectedIds.first())
                                          : nullptr;
}

enum class Base { Filled, Cancelled, Failed };

/// A copy takes every field, times, duration and break too.
template <class Record>
Base CopySelected(Record& record, const QuickEntrySurroundings& around) {
    const CVORec* base = Selected(record.Kind(), around);
    if (!base) return Base::Failed;
    record.Copy(static_cast<const Record&>(*base));
    return Base::Filled;
}

template <class Record>
Base FillFromBase(Record& record, int flags, const QuickEntrySurroundings& around) {
    if (flags & kDefaults) {
        if (!around.fillFromDefaults) return Base::Failed;
        return around.fillFromDefaults(record) ? Base::Filled : Base::Cancelled;
    }
    if (flags & kTree)
        return around.fillFromTree && around.fillFromTree(record) ? Base::Filled : Base::Failed;
    return flags & kCopy ? CopySelected(record, around) : Base::Filled;
}

void PutDate(RecordDate& date, const DateTimeVal& day) {
    date.Set(day.month, day.day, day.year);
}

/// A single date that can't be read leaves the date unset; yesterday is yesterday; any other period is today.
void DateFromPeriod(RecordDate& date, const PeriodFilter& period, const QuickEntrySurroundings& around) {
    if (period.preset == PeriodCode::kSingleDate) {
        SYSTEMTIME day;
        date.Reset();
        if (ParseDate(around.document.PeriodNeeds().region, period.startText, day))
            date.Set(day.wMonth, day.wDay, day.wYear);
        return;
    }
    DateTimeVal day;
    day.SetToday(around.clock);
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
bool Succeed(CTRecord& record, const QuickEntrySurroundings& around) {
    const CVORec* fetched = around.successiveId.isEmpty()
                                ? Selected(RecordKind::Time, around)
                                : around.document.FetchRecord(RecordKind::Time, around.successiveId);
    if (!fetched) return false;
    const auto& former = static_cast<const CTRecord&>(*fetched);
    record.date.Copy(former.date);
    if (!former.HasEnd()) {
        record.ClearStart();
        return true;
    }
    DateTimeVal start;
    start.SetTime(former.endHour, former.endMinute, former.endIsPm);
    if (around.settings.addMinuteOnSuccessive) start.AddMinutes(1);
    record.SetStart(start);
    return true;
}

bool FillDateAndStart(CTRecord& record, int flags, const QuickEntrySurroundings& around) {
    if (flags & kTimestamp) Timestamp(record, around.clock);
    if (flags & kSuccessive) return Succeed(record, around);
    if (!(flags & kTimestamp)) DateFromPeriod(record.date, around.document.Filter(), around);
    return true;
}

/// An expense that follows another takes nothing from it: there is no start.
bool FillDateAndStart(CERecord& record, int flags, const QuickEntrySurroundings& around) {
    if (!(flags & kTimestamp)) {
        DateFromPeriod(record.date, around.document.FilterOfExpenses(), around);
        return true;
    }
    DateTimeVal today;
    today.SetToday(around.clock);
    PutDate(record.date, today);
    return true;
}

/// What makes a record at once, where the dialog is switched off for it.
template <class Record>
constexpr int kQuick = kTimestamp | kSuccessive;
template <>
constexpr int kQuick<CTRecord> = kTimestamp | kSuccessive | kTimer;

/// Without the dialog the record is added as it is; with it, as edited, unless the user cancels. One that
/// can't be stored comes back to the dialog: what was entered isn't lost.
template <class Record>
QuickOutcome Finish(Record& record, int flags, const QuickEntrySurroundings& around) {
    const bool isQuick = flags & kQuick<Record>;
    const bool isAsked = around.edit && (!isQuick || around.settings.dialogOnQuickEntry);
    QuickOutcome outcome{.succeeded = true, .addedId = {}};
    do {
        if (isAsked && !around.edit(record)) break;
        outcome.succeeded = around.document.AddRecord(record, true, false, false, &outcome.addedId);
    } while (isAsked && !outcome.succeeded);
    return outcome;
}

/// The steps up to the identity; false when the command ends there, with its outcome set.
template <class Record>
bool Begin(Record& record, int flags, const QuickEntrySurroundings& around, QuickOutcome& outcome) {
    const Base base = FillFromBase(record, flags, around);
    outcome.succeeded = base == Base::Cancelled;
    if (base != Base::Filled || !FillDateAndStart(record, flags, around)) return false;
    record.GenUnique();
    return true;
}

std::vector<QuickCommandRow> WithoutDefaultsAndTree() {
    std::vector<QuickCommandRow> rows;
    std::ranges::copy_if(kCommands, std::back_inserter(rows),
                         [](const QuickCommandRow& row) { return !(row.flags & (kDefaults | kTree)); });
    return rows;
}

}  // namespace

std::span<const QuickCommandRow> AllQuickCommands() {
    return kCommands;
}

std::span<const QuickCommandRow> QuickCommands() {
    static const std::vector<QuickCommandRow> kRows = WithoutDefaultsAndTree();
    return kRows;
}

QuickOutcome NewTimeRecord(int flags, const QuickEntrySurroundings& around) {
    CTRecord record;
    QuickOutcome outcome;
    if (!Begin(record, flags, around, outcome)) return outcome;
    const QString id = record.GetId();
    if (flags & kTimer) {
        around.timers.RunNewTimerAction();
        around.timers.StartFromZero(id);
    }
    outcome = Finish(record, flags, around);
    // The dialog may have started a timer as well.
    if (outcome.addedId.isEmpty())
        around.timers.Drop(id);
    else
        around.timers.Keep(id);
    return outcome;
}

QuickOutcome NewExpenseRecord(int flags, const QuickEntrySurroundings& around) {
    CERecord record;
    QuickOutcome outcome;
    if (!Begin(record, flags, around, outcome)) return outcome;
    return Finish(record, flags, around);
}
