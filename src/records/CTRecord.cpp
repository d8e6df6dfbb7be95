#include "records/CTRecord.h"

#include "calendar/CalendarMath.h"
#include "calendar/NumberText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/FieldTexts.h"
#include "records/Precisions.h"

#include <algorithm>
#include <optional>

namespace {

/// More hours than any clock arithmetic makes a time of: a damaged row may hold any number.
constexpr int kBeyondAnyTime = 10000;

enum class Direction { Later, Earlier };

/// A time of day moved by minutes, then hours, around midnight. 20:00 and 8:00 later: 04:00. Nothing when
/// that gives no time, which is so for most lengths of two days and more.
std::optional<DateTimeVal> Moved(int hour, int minute, bool isPm, int hours, int minutes,
                                 Direction direction) {
    DateTimeVal time;
    if (!time.SetTime(hour, minute, isPm)) return std::nullopt;
    hours = std::clamp(hours, -kBeyondAnyTime, kBeyondAnyTime);
    minutes = std::clamp(minutes, -kBeyondAnyTime, kBeyondAnyTime);
    if (direction == Direction::Later)
        time.AddMinutes(minutes).AddHours(hours);
    else
        time.SubtractMinutes(minutes).SubtractHours(hours);
    if (!time.ValidateTime()) return std::nullopt;
    return time;
}

void Put(const DateTimeVal& time, int& hour, int& minute, bool& isPm) {
    hour = time.hour12;
    minute = time.minute;
    isPm = time.isPm != 0;
}

void ClearTime(int& hour, int& minute, bool& isPm) {
    hour = NoTimeHour;
    minute = 0;
    isPm = false;
}

float Share(float amount, float hours) {
    return hours == 0.0F ? 0.0F : amount / hours;
}

}  // namespace

/// A record of a bulk load is made a million times: only what the members' own defaults don't say is set.
CTRecord::CTRecord() {
    const CPrecisionSource& precisions = ThePrecisions();
    for (SpanField* span : {&spans.duration, &spans.breakTime, &spans.effective})
        span->decimal.precision = precisions.DurationPrecision();
    amount.precision = precisions.AmountPrecision();
    amount.SetNone();
    rate.precision = precisions.RatePrecision();
    rate.SetNone();
}

void CTRecord::Reset() {
    *this = CTRecord();
}

/// With a duration the end follows a new start and the duration stays.
/// 09:00 to 17:00, start moved to 10:00: the end becomes 18:00.
void CTRecord::SetStart(int hour, int minute, bool isPm) {
    NormaliseTime(hour, minute);
    startHour = hour;
    startMinute = minute;
    startIsPm = isPm;
    const SpanField& length = spans.duration;
    const auto end = length.IsSet()
                         ? Moved(hour, minute, isPm, length.hours, length.minutes, Direction::Later)
                         : std::nullopt;
    if (end)
        Put(*end, endHour, endMinute, endIsPm);
    else
        RecalcDuration();
    RecalcMoney();
}

/// The mirror of SetStart: the start follows a new end.
void CTRecord::SetEnd(int hour, int minute, bool isPm) {
    NormaliseTime(hour, minute);
    endHour = hour;
    endMinute = minute;
    endIsPm = isPm;
    const SpanField& length = spans.duration;
    const auto start = length.IsSet()
                           ? Moved(hour, minute, isPm, length.hours, length.minutes, Direction::Earlier)
                           : std::nullopt;
    if (start)
        Put(*start, startHour, startMinute, startIsPm);
    else
        RecalcDuration();
    RecalcMoney();
}

/// The duration between start and end; none when one is missing or MinutesBetween knows no span: 09:00 to
/// 09:00.
void CTRecord::RecalcDuration() {
    DateTimeVal start;
    DateTimeVal end;
    spans.duration.Reset();
    if (start.SetTime(startHour, startMinute, startIsPm) && end.SetTime(endHour, endMinute, endIsPm)) {
        SYSTEMTIME from;
        SYSTEMTIME to;
        start.ToClockTime(from);
        end.ToClockTime(to);
        if (const ClockSpan span = MinutesBetween(from, to); span.known)
            spans.duration.Set(span.hours, span.minutes);
    }
    spans.Recompute();
}

/// A new duration moves the end, or the start: when only the end is known, or when both are and moveStart is
/// set. 09:00 with 8:00: the end becomes 17:00. A duration that leads to no time of day clears both times.
void CTRecord::SetDuration(int hours, int minutes, bool moveStart) {
    if (HasStart() || HasEnd()) {
        const bool startMoves = HasEnd() && (moveStart || !HasStart());
        const auto time = startMoves
                              ? Moved(endHour, endMinute, endIsPm, hours, minutes, Direction::Earlier)
                              : Moved(startHour, startMinute, startIsPm, hours, minutes, Direction::Later);
        if (!time) {
            ClearStart();
            ClearEnd();
        } else if (startMoves) {
            Put(*time, startHour, startMinute, startIsPm);
        } else {
            Put(*time, endHour, endMinute, endIsPm);
        }
    }
    SetDurationOnly(hours, minutes);
}

void CTRecord::SetDurationOnly(int hours, int minutes) {
    spans.duration.Set(hours, minutes);
    spans.Recompute();
    RecalcMoney();
}

/// A negative part takes the break away and leaves the money as it is, unlike a break of 0:00.
void CTRecord::SetBreak(int hours, int minutes) {
    spans.SetBreak(hours, minutes);
    if (hours >= 0 && minutes >= 0) RecalcMoney();
}

void CTRecord::ClearStart() {
    ClearTime(startHour, startMinute, startIsPm);
}

void CTRecord::ClearEnd() {
    ClearTime(endHour, endMinute, endIsPm);
}

bool CTRecord::GetStart(int& hour, int& minute, bool& isPm) const {
    hour = startHour;
    minute = startMinute;
    isPm = startIsPm;
    return HasStart();
}

bool CTRecord::GetEnd(int& hour, int& minute, bool& isPm) const {
    hour = endHour;
    minute = endMinute;
    isPm = endIsPm;
    return HasEnd();
}

void CTRecord::SetBillable(bool flag) {
    isBillable = flag;
    if (flag) return;
    isBilled = false;
    amount.SetNone();
    rate.SetNone();
    amountIsDerived = false;
    rateIsDerived = false;
}

/// An amount that is entered gives the rate. 30 for 2:00: 15 an hour.
bool CTRecord::SetAmount(float value) {
    amountIsDerived = false;
    rateIsDerived = false;
    const bool isValue = value >= 0.0F;  // a value that is no number is none either
    if (isValue)
        amount.Set(value);
    else
        amount.SetNone();
    float hours = 0.0F;
    if (!isValue || !spans.effective.GetDecimal(hours)) return false;
    rate.Set(Share(value, hours));
    rateIsDerived = true;
    return true;
}

/// A rate that is entered gives the amount. 10 an hour for 1:30: 15.
bool CTRecord::SetRate(float value) {
    amountIsDerived = false;
    rateIsDerived = false;
    const bool isValue = value >= 0.0F;
    if (isValue)
        rate.Set(value);
    else
        rate.SetNone();
    float hours = 0.0F;
    if (!isValue || !spans.effective.GetDecimal(hours)) return false;
    amount.Set(hours * value);
    amountIsDerived = true;
    return true;
}

/// After a change of time the value that was entered stays and the derived one follows. The derived flags
/// aren't stored: after a load a rate wins over an amount. Without effective time the derived value goes and
/// the flag stays, so that it comes back with the next valid time.
void CTRecord::RecalcMoney() {
    if (!isBillable) return;
    float hours = 0.0F;
    if (!spans.effective.GetDecimal(hours)) {
        if (amountIsDerived)
            amount.SetNone();
        else if (rateIsDerived)
            rate.SetNone();
        return;
    }
    float enteredRate = 0.0F;
    float enteredAmount = 0.0F;
    const bool hasRate = GetRate(enteredRate);
    const bool hasAmount = GetAmount(enteredAmount);
    if (!amountIsDerived && !rateIsDerived) {
        amountIsDerived = hasRate;
        rateIsDerived = !hasRate && hasAmount;
    }
    if (amountIsDerived) amount.Set(hours * enteredRate);
    if (rateIsDerived) rate.Set(Share(enteredAmount, hours));
}

std::unique_ptr<CVORec> CTRecord::Clone() const {
    auto copy = std::make_unique<CTRecord>();
    copy->Copy(*this);
    return copy;
}

QString TimeTextOfRecord(const CTRecord& record, int which) {
    int hour = 0;
    int minute = 0;
    bool isPm = false;
    const bool isKnown =
        which == 3 ? record.GetStart(hour, minute, isPm) : which == 4 && record.GetEnd(hour, minute, isPm);
    return isKnown ? FormatTimeOfDay(TheRegion(), hour, minute, isPm) : NoTimeText();
}
