#include "calendar/NumberText.h"

#include "calendar/CalendarMath.h"
#include "calendar/ScanText.h"
#include "lang/FormatText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace {

constexpr int kMaxPlaces = 99;

/// The text as it can be scanned, with the full stop as decimal character; nothing where full stop and
/// decimal character are mixed or come twice: "1.5,2", "1,5,2".
std::optional<QString> WithFullStop(const CRegionalInfo& locale, const QString& text) {
    const QChar decimal(locale.decimalChar);
    const auto decimals = text.count(decimal);
    if (locale.usesDotDecimal) return decimals > 1 ? std::nullopt : std::optional(text);
    const auto stops = text.count(u'.');
    if (stops + decimals > 1) return std::nullopt;
    return stops == 1 ? text : QString(text).replace(decimal, u'.');
}

template <class Number>
bool ParseNumber(const CRegionalInfo& locale, const QString& text, const QString& format, Number& out) {
    const auto scannable = WithFullStop(locale, text);
    return scannable && ScanText(format, *scannable, {&out}) == 1;
}

/// Day, month and year as they stand in a text, first to last.
using DateParts = std::array<int, 3>;

DateParts InOrder(int dateOrder, int month, int day, int year) {
    if (dateOrder == 1) return {day, month, year};
    if (dateOrder == 2) return {year, month, day};
    return {month, day, year};
}

SYSTEMTIME FromOrder(int dateOrder, const DateParts& parts) {
    const auto part = [&parts](std::size_t at) { return static_cast<std::uint16_t>(parts[at]); };
    SYSTEMTIME out;
    out.wMonth = part(dateOrder == 1 || dateOrder == 2 ? 1 : 0);
    out.wDay = part(dateOrder == 1 ? 0 : dateOrder == 2 ? 2 : 1);
    out.wYear = part(dateOrder == 2 ? 0 : 2);
    return out;
}

constexpr qsizetype kTimeLength = 8;

/// In two digits at least.
void AppendPart(QString& text, int part) {
    if (part < 0 || part > 99) {
        text.append(QString::number(part));
        return;
    }
    text.append(QChar(u'0' + part / 10));
    text.append(QChar(u'0' + part % 10));
}

}  // namespace

bool ParseFloat(const CRegionalInfo& locale, const QString& text, float& out) {
    return ParseNumber(locale, text, LoadText(Text::ScanFloat), out);
}

bool ParseDouble(const CRegionalInfo& locale, const QString& text, double& out) {
    return ParseNumber(locale, text, QStringLiteral("%lf"), out);
}

bool ReadsWhole(const CRegionalInfo& locale, const QString& text) {
    const auto scannable = WithFullStop(locale, text);
    double number = 0.0;
    QString rest;
    return scannable && ScanText(QStringLiteral("%lf%s"), *scannable, {&number, &rest}) == 1;
}

QString FormatNumber(const CRegionalInfo& locale, double value, int precision) {
    // to_chars writes as printf does, whatever the process's locale says about the decimal character.
    std::array<char, std::numeric_limits<double>::max_exponent10 + kMaxPlaces + 4> buffer{};
    char* const last = buffer.data() + buffer.size();
    const auto [stop, error] = precision < 0
                                   ? std::to_chars(buffer.data(), last, value, std::chars_format::general, 6)
                                   : std::to_chars(buffer.data(), last, value, std::chars_format::fixed,
                                                   std::min(precision, kMaxPlaces));
    Q_ASSERT(error == std::errc());
    QString text = QString::fromLatin1(buffer.data(), stop - buffer.data());
    if (locale.decimalChar != u'.') text.replace(u'.', QChar(locale.decimalChar));
    return text;
}

QString FormatTimeOfDay(const CRegionalInfo& locale, int hour12, int minute, bool isPm) {
    // Lists and exports call this for each line, and any printf takes many times as long.
    QString text;
    text.reserve(kTimeLength);
    AppendPart(text, locale.is24Hour ? Hour24Of(hour12, isPm) : hour12);
    text.append(u':');
    AppendPart(text, minute);
    if (!locale.is24Hour) text.append(isPm ? QStringView(u" PM") : QStringView(u" AM"));
    return text;
}

QString FormatDate(const CRegionalInfo& locale, int month, int day, int year) {
    const QString separator(QChar(locale.dateSeparator));
    if (year < 1) {
        const int first = locale.dateOrder == 1 ? day : month;
        const int second = locale.dateOrder == 1 ? month : day;
        return FormatText<Text::DateWithoutYear>(first, separator, second);
    }
    const DateParts parts = InOrder(locale.dateOrder, month, day, year);
    return FormatText<Text::DateWithYear>(parts[0], separator, parts[1], separator, parts[2]);
}

bool ParseDate(const CRegionalInfo& locale, const QString& text, SYSTEMTIME& outClock) {
    const QString& number = LoadText(Text::ScanInteger);
    const QString separator(QChar(locale.dateSeparator));
    const QString format = FormatText<Text::ScanDateFrame>(number, separator, number, separator, number);
    DateParts parts{};
    if (ScanText(format, text, {&parts[0], &parts[1], &parts[2]}) < 3) return false;
    // A clock value has 16 bits for each part: 65537 must not come out as 1.
    const auto fits = [](int part) { return part >= 0 && part <= std::numeric_limits<std::uint16_t>::max(); };
    if (!std::all_of(parts.begin(), parts.end(), fits)) return false;
    outClock = FromOrder(locale.dateOrder, parts);
    return true;
}
