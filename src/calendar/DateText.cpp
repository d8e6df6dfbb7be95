#include "calendar/DateText.h"

#include "calendar/NumberText.h"

#include <cmath>

namespace {

/// The year modulo 100, worked out in single precision as stored texts always were: 2026 gives 26, 2000 gives
/// 0.
int ShortYear(int year) {
    const auto whole = static_cast<float>(year);
    return static_cast<int>(whole + 100.0F * std::trunc(whole * -0.01F));
}

constexpr int kNoYear = -1;

}  // namespace

QString LongDateText(const CRegionalInfo& locale, int month, int day, int year) {
    return FormatDate(locale, month, day, year);
}

QString ShortDateText(const CRegionalInfo& locale, int month, int day, int year) {
    return FormatDate(locale, month, day, ShortYear(year));
}

QString DayText(const CRegionalInfo& locale, int month, int day) {
    return FormatDate(locale, month, day, kNoYear);
}
