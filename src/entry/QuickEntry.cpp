#include "entry/QuickEntry.h"

#include "app/CTimerDesk.h"
#include "app/CVelmarchDoc.h"
#include "calendar/NumberText.h"
#include "config/Settings.h"
#include "records/CTRecord.h"

namespace {

using namespace QuickFlag;

constexpr QuickCommandRow kCommands[] = {
    {32852, kBlank | kTimestamp},
    {32853, kBlank | kTimestamp | kTimer},
    {32854, kBlank | kSuccessive},
    {32855, kBlank | kSuccessive | kTimer},
    {32864, kCopy | kTimestamp},
    {32865, kCopy | kTimestamp | kTimer},
    {32866, kCopy | kSuccessive},
    {32867, kCopy | kSuccessive | kTimer},
    {40147, kBlank},
};

const CTRecord* Fetch(const QString& id, const QuickEntrySurroundings& around) {
    return static_cast<const CTRecord*>(around.document.FetchRecord(RecordKind::Time, id));
}

/// The one selected record; null unless exactly one is selected.
const CTRecord* Selected(const QuickEntrySurroundings& around) {
    return around.selectedIds.size() == 1 ? Fetch(around.selectedIds.first(), around) : nullptr;
}

/// A copy takes every field, times, duration and break too.
bool FillFromBase(CTRecord& record, int flags, const QuickEntrySurroundings& around) {
    if (flags & (kDefaults | kTree)) return false;
    if (!(flags & kCopy)) return true;
    const CTRecord* base = Selected(around);
    if (base) record.Copy(*base);
    return base != nullptr;
}

void PutDate(CTRecord& record, const DateTimeVal& date) {
    record.date.Set(date.month, date.day, date.year);
}

/// Date and start are now; the time isn't rounded.
void Timestamp(CTRecord& record, const CClock& clock) {
    DateTimeVal now;
    now.SetNow(clock);
    PutDate(record, now);
    record.SetStart(now);
}

/// The date of the other record, and its end as start, a minute later if so set. Past midnight the date
/// stays: after 11:59 PM comes 12:00 AM of the same date. A record without an end gives one without a start.
bool Succeed(CTRecord& record, const QuickEntrySurroundings& around) {
    const CTRecord* former =
        around.successiveId.isEmpty() ? Selected(around) : Fetch(around.successiveId, around);
    if (!former) return false;
    record.date.Copy(former->date);
    if (!former->HasEnd()) {
        record.ClearStart();
        return true;
    }
    DateTimeVal start;
    start.SetTime(former->endHour, former->endMinute, former->endIsPm);
    if (around.settings.addMinuteOnSuccessive) start.AddMinutes(1);
    record.SetStart(start);
    return true;
}

/// A single date that can't be read leaves the date unset; yesterday is yesterday; any other period is today.
void DateFromPeriod(CTRecord& record, const QuickEntrySurroundings& around) {
    const TimeFilter& filter = around.document.Filter();
    if (filter.preset == PeriodCode::kSingleDate) {
        SYSTEMTIME day;
        record.date.Reset();
        if (ParseDate(around.document.PeriodNeeds().region, filter.startText, day))
            record.date.Set(day.wMonth, day.wDay, day.wYear);
        return;
    }
    DateTimeVal date;
    date.SetToday(around.clock);
    if (filter.preset == PeriodCode::kYesterday) date.SubtractDays(1);
    PutDate(record, date);
}

bool FillDateAndStart(CTRecord& record, int flags, const QuickEntrySurroundings& around) {
    if (flags & kTimestamp) Timestamp(record, around.clock);
    if (flags & kSuccessive) return Succeed(record, around);
    if (!(flags & kTimestamp)) DateFromPeriod(record, around);
    return true;
}

/// Without the dialog the record is added as it is; with it, as edited, unless the user cancels.
bool IsAccepted(CTRecord& record, int flags, const QuickEntrySurroundings& around) {
    const bool isQuick = flags & (kTimestamp | kSuccessive | kTimer);
    if (!around.edit || (isQuick && !around.settings.dialogOnQuickEntry)) return true;
    return around.edit(record);
}

}  // namespace

std::span<const QuickCommandRow> QuickCommands() {
    return kCommands;
}

QuickOutcome NewTimeRecord(int flags, const QuickEntrySurroundings& around) {
    CTRecord record;
    if (!FillFromBase(record, flags, around) || !FillDateAndStart(record, flags, around)) return {};
    record.GenUnique();
    const QString id = record.GetId();
    if (flags & kTimer) {
        around.timers.RunNewTimerAction();
        around.timers.StartFromZero(id);
    }
    QuickOutcome outcome{.succeeded = true, .addedId = {}};
    if (IsAccepted(record, flags, around))
        outcome.succeeded = around.document.AddRecord(record, true, false, false, &outcome.addedId);
    if (outcome.addedId.isEmpty())
        around.timers.Drop(id);
    else
        around.timers.Keep(id);
    return outcome;
}
