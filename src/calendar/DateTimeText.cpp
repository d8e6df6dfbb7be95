#include "calendar/CalendarMath.h"
#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "calendar/ScanText.h"
#include "lang/LoadText.h"

namespace {

/// The words of a half day, each in two spellings.
struct HalfDayWord {
    Text word;
    bool isPm;
};
constexpr HalfDayWord kHalfDayWords[] = {
    {Text::AmWord, false}, {Text::AmWordLower, false}, {Text::PmWord, true}, {Text::PmWordLower, true}};

bool ReadTime12(DateTimeVal& value, const QString& text) {
    int hour = 0;
    int minute = 0;
    QString word;
    if (ScanText(LoadText(Text::ScanTime12), text, {&hour, &minute, &word}) < 3)
        return value.SetTime(0, 0, false);
    if (!value.SetTime(hour, minute, value.isPm != 0)) return false;
    for (const HalfDayWord& known : kHalfDayWords) {
        if (word != LoadText(known.word)) continue;
        value.isPm = known.isPm ? 1 : 0;
        return true;
    }
    value.isValid = 0;  // an unknown word alone leaves hour and minute as read
    return false;
}

bool ReadTime24(DateTimeVal& value, const QString& text) {
    int hour = 0;
    int minute = 0;
    if (ScanText(LoadText(Text::ScanTime24), text, {&hour, &minute}) < 2) return value.SetTime(0, 0, false);
    return value.SetTime24(hour, minute);
}

}  // namespace

bool DateTimeVal::ParseTimeText(const QString& text, bool is24Hour) {
    return is24Hour ? ReadTime24(*this, text) : ReadTime12(*this, text);
}

bool DateTimeVal::ParseDateText(const QString& text, const CRegionalInfo& locale, const CClock& clock) {
    SYSTEMTIME read;
    if (ParseDate(locale, text, read)) {
        month = read.wMonth;
        day = read.wDay;
        year = read.wYear;
        if (ValidateDate()) return true;
    }
    SetToday(clock);
    isValid = 1;
    return false;
}
