#include "records/FieldValues.h"

#include "records/FieldTexts.h"

#include <algorithm>
#include <cstdint>
#include <limits>

void DecimalField::Set(float v) {
    const DecimalText& made = TextOfDecimal(v, precision);
    value = made.value;
    text = made.text;
    isSet = true;
    isAsRead = false;
}

void DecimalField::Reset() {
    value = 0.0F;
    text.clear();
    isSet = false;
    isAsRead = false;
}

void DecimalField::Copy(const DecimalField& source) {
    Set(source.value);
}

bool DecimalField::GetMoney(float& out) const {
    const bool isPresent = value != kNone;
    out = isPresent ? value : 0.0F;
    return isPresent;
}

void RecordDate::Reset() {
    *this = RecordDate{};
}

void RecordDate::Set(int newMonth, int newDay, int newYear) {
    if (newMonth < 1 || newDay < 1 || newYear < 1) {
        Reset();
        return;
    }
    month = newMonth;
    day = newDay;
    year = newYear;
    const DayTexts& texts = TextsOfDay(month, day, year);
    longText = texts.longText;
    shortText = texts.shortText;
    dayText = texts.dayText;
}

SpanField::SpanField() {
    clockText = NoTimeText();
}

void SpanField::Reset() {
    hours = -1;
    minutes = -1;
    decimal.Reset();
    clockText = NoTimeText();
}

void SpanField::Set(int newHours, int newMinutes) {
    if (newHours < 0 || newMinutes < 0) {
        Reset();
        return;
    }
    // A damaged row may hold any numbers: the sum stays within an int.
    const std::int64_t carried = std::int64_t{newHours} + newMinutes / 60;
    hours = static_cast<int>(std::min<std::int64_t>(carried, std::numeric_limits<int>::max()));
    minutes = newMinutes % 60;
    decimal.Set(static_cast<float>(minutes) * 0.016666668F + static_cast<float>(hours));
    clockText = TextOfClockSpan(hours, minutes);
}

bool SpanField::GetDecimal(float& out) const {
    out = IsSet() ? decimal.value : 0.0F;
    return IsSet();
}

void SpanField::Copy(const SpanField& source) {
    hours = source.hours;
    minutes = source.minutes;
    clockText = source.clockText;
    // The copy of an unset span has a decimal that is set, with the value 0: wanted, the getters look at the
    // hours.
    decimal.Copy(source.decimal);
}

void SpanField::Subtract(const SpanField& a, const SpanField& b) {
    std::int64_t h = std::int64_t{a.hours} - b.hours;
    int m = a.minutes - b.minutes;
    if (m < 0) {
        h -= 1;
        m += 60;
    }
    if (h < 0)
        Reset();
    else
        Set(static_cast<int>(h), m);
}

void SpanSet::Reset() {
    duration.Reset();
    breakTime.Reset();
    effective.Reset();
}

void SpanSet::SetBreak(int hours, int minutes) {
    breakTime.Set(hours, minutes);
    Recompute();
}

void SpanSet::Recompute() {
    if (!duration.IsSet())
        effective.Reset();
    else if (breakTime.IsSet())
        effective.Subtract(duration, breakTime);
    else
        effective.Copy(duration);
}

void SpanSet::Copy(const SpanSet& source) {
    duration.Copy(source.duration);
    breakTime.Copy(source.breakTime);
    effective.Copy(source.effective);
}
