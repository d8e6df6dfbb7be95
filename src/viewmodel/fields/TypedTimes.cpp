#include "viewmodel/fields/TypedTimes.h"

#include "calendar/CalendarMath.h"
#include "calendar/ScanText.h"
#include "lang/LoadText.h"

#include <QRegularExpression>
#include <array>
#include <cmath>

namespace {

constexpr int kMinutesOfDay = 24 * 60;

/// "n", "no" and "now" all mean now.
bool Begins(const QString& word, Text whole) {
    return !word.isEmpty() && LoadText(whole).startsWith(word, Qt::CaseInsensitive);
}

/// Sets the time from the figures as typed; the word says which half of the day.
bool SetTypedTime(DateTimeVal& out, int hour, int minute, const QString& word) {
    if (word.isEmpty()) return hour <= 23 && minute <= 59 && out.SetTime24(hour, minute);
    const bool isPm = Begins(word, Text::PmWord);
    if (!isPm && !Begins(word, Text::AmWord)) return false;
    return out.SetTime(hour, minute, isPm);
}

Typed FromMinutes(double total, int& hours, int& minutes) {
    if (total >= kMinutesOfDay - 0.5) return Typed::Unreadable;
    const int whole = static_cast<int>(std::lround(total));
    hours = whole / 60;
    minutes = whole % 60;
    return Typed::Value;
}

/// "1:30" and ":45", with minutes below 60.
bool ReadClockSpan(const QString& text, int& total) {
    static const QRegularExpression kForm(QStringLiteral("^(\\d{0,3}):(\\d{0,2})$"));
    const auto match = kForm.match(text);
    if (!match.hasMatch() || text.size() == 1 || match.captured(2).toInt() > 59) return false;
    total = match.captured(1).toInt() * 60 + match.captured(2).toInt();
    return true;
}

/// "1h", "1h30", "1 h 30 min".
bool ReadHoursSpan(const QString& text, int& total) {
    static const QRegularExpression kForm(
        QStringLiteral("^(\\d{1,3})\\s*([^\\d\\s]+)\\s*(?:(\\d{1,2})\\s*([^\\d]*))?$"));
    const auto match = kForm.match(text);
    if (!match.hasMatch() || !Begins(match.captured(2), Text::TypedHours)) return false;
    const QString unit = match.captured(4);
    const int minutes = match.captured(3).toInt();
    if (minutes > 59 || (!unit.isEmpty() && !Begins(unit, Text::TypedMinutes))) return false;
    total = match.captured(1).toInt() * 60 + minutes;
    return true;
}

/// "90m", "90 min".
bool ReadMinutesSpan(const QString& text, int& total) {
    static const QRegularExpression kForm(QStringLiteral("^(\\d{1,4})\\s*([^\\d]+)$"));
    const auto match = kForm.match(text);
    if (!match.hasMatch() || !Begins(match.captured(2), Text::TypedMinutes)) return false;
    total = match.captured(1).toInt();
    return true;
}

/// "2", "1.5" and the region's "1,5", which is a different thing from a thousands separator.
bool ReadDecimalSpan(QString text, const CRegionalInfo& region, double& total) {
    text.replace(QChar(region.decimalChar), QLatin1Char('.'));
    static const QRegularExpression kForm(QStringLiteral("^(?:\\d{1,3}(?:\\.\\d*)?|\\.\\d+)$"));
    if (!kForm.match(text).hasMatch()) return false;
    total = text.toDouble() * 60.0;
    return true;
}

/// The numbers of a typed date in their order, with what is missing taken from today.
bool DateFigures(const QString& text, const CRegionalInfo& region, const SYSTEMTIME& today, int& month,
                 int& day, int& year) {
    static const QRegularExpression kForm(
        QStringLiteral("^(\\d{1,4})(?:[^\\d]+(\\d{1,2})(?:[^\\d]+(\\d{1,4}))?)?[./-]?$"));
    const auto match = kForm.match(text);
    if (!match.hasMatch()) return false;
    std::array<int, 3> figures{};
    for (int i = 0; i < 3; ++i) figures[static_cast<std::size_t>(i)] = match.captured(i + 1).toInt();
    const bool hasYear = match.hasCaptured(3);
    const bool yearFirst = hasYear && (match.captured(1).size() == 4 || region.dateOrder == 2);
    month = today.wMonth;
    year = today.wYear;
    if (!match.hasCaptured(2)) {
        day = figures[0];
        return true;
    }
    const std::size_t first = yearFirst ? 1 : 0;
    const bool dayFirst = region.dateOrder == 1 && !yearFirst;
    month = figures[dayFirst ? first + 1 : first];
    day = figures[dayFirst ? first : first + 1];
    if (hasYear) year = yearFirst ? figures[0] : figures[2];
    return true;
}

}  // namespace

Typed ReadTypedTime(const QString& text, const CClock& clock, DateTimeVal& out) {
    const QString typed = WithoutFormatCharacters(text).trimmed();
    if (typed.isEmpty()) return Typed::Nothing;
    DateTimeVal value;
    if (Begins(typed, Text::TypedNow)) {
        if (!value.SetTimeFromClock(clock.GetLocalTime())) return Typed::Unreadable;
        out = value;
        return Typed::Value;
    }
    static const QRegularExpression kForm(
        QStringLiteral("^(\\d{1,2})(?:(\\d\\d)|\\s*[:.,h\\s]\\s*(\\d{0,2}))?\\s*([^\\d]*)$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = kForm.match(typed);
    if (!match.hasMatch()) return Typed::Unreadable;
    const int minute = match.hasCaptured(2) ? match.captured(2).toInt() : match.captured(3).toInt();
    QString word = match.captured(4).remove(QLatin1Char('.')).remove(QLatin1Char(' '));
    if (!SetTypedTime(value, match.captured(1).toInt(), minute, word)) return Typed::Unreadable;
    out = value;
    return Typed::Value;
}

Typed ReadTypedSpan(const QString& text, const CRegionalInfo& region, int& hours, int& minutes) {
    const QString typed = WithoutFormatCharacters(text).trimmed();
    if (typed.isEmpty()) return Typed::Nothing;
    int total = 0;
    if (ReadClockSpan(typed, total) || ReadHoursSpan(typed, total) || ReadMinutesSpan(typed, total))
        return FromMinutes(total, hours, minutes);
    double decimal = 0.0;
    QString number = typed;
    if (number.endsWith(LoadText(Text::TypedHours), Qt::CaseInsensitive))
        number = number.chopped(LoadText(Text::TypedHours).size()).trimmed();
    if (!ReadDecimalSpan(number, region, decimal)) return Typed::Unreadable;
    return FromMinutes(decimal, hours, minutes);
}

Typed ReadTypedDate(const QString& text, const CRegionalInfo& region, const CClock& clock, DateTimeVal& out) {
    const QString typed = WithoutFormatCharacters(text).trimmed();
    if (typed.isEmpty()) return Typed::Nothing;
    DateTimeVal value;
    if (Begins(typed, Text::TypedToday)) {
        if (!value.SetToday(clock)) return Typed::Unreadable;
        out = value;
        return Typed::Value;
    }
    int month = 0;
    int day = 0;
    int year = 0;
    if (!DateFigures(typed, region, clock.GetLocalTime(), month, day, year)) return Typed::Unreadable;
    // SetDate expands a short year and lets 31 February pass, so the length of the month is asked afterwards.
    if (!value.SetDate(month, day, year) || value.day > DaysInMonth(value.month, value.year))
        return Typed::Unreadable;
    out = value;
    return Typed::Value;
}
