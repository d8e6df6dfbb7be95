#include "cli/arguments/EnteredValues.h"

#include "calendar/CalendarMath.h"
#include "calendar/ScanText.h"
#include "entry/TypedNumber.h"
#include "lang/LoadText.h"
#include "records/CVOId.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

/// ASCII digits only: other scripts' digits would pass QChar::isDigit and mean nothing to what follows.
bool IsDigits(QStringView text, qsizetype least, qsizetype most) {
    return text.size() >= least && text.size() <= most &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

bool IsDayOfItsMonth(const DateTimeVal& date) {
    return date.IsValid() && date.year >= EnteredValues::kFirstYear && date.year <= 9999 &&
           date.day <= DaysInMonth(date.month, date.year);
}

std::optional<DateTimeVal> ReadIsoDate(const QString& text) {
    const QStringList parts = text.split(u'-');
    if (parts.size() != 3 || !IsDigits(parts[0], 4, 4) || !IsDigits(parts[1], 2, 2) ||
        !IsDigits(parts[2], 2, 2) || parts[0].toInt() < EnteredValues::kFirstYear)
        return std::nullopt;
    DateTimeVal date;
    if (!date.SetDate(parts[1].toInt(), parts[2].toInt(), parts[0].toInt())) return std::nullopt;
    return IsDayOfItsMonth(date) ? std::optional(date) : std::nullopt;
}

std::optional<DateTimeVal> ReadRegionalDate(const QString& text, const CRegionalInfo& region,
                                            const CClock& clock) {
    const QStringList parts = text.split(QChar(region.dateSeparator));
    const qsizetype year = region.dateOrder == 2 ? 0 : 2;
    if (parts.size() != 3) return std::nullopt;
    for (qsizetype part = 0; part < 3; ++part)
        if (!IsDigits(parts[part], 1, part == year ? 4 : 2)) return std::nullopt;
    DateTimeVal date;
    if (!date.ParseDateText(text, region, clock)) return std::nullopt;
    return IsDayOfItsMonth(date) ? std::optional(date) : std::nullopt;
}

}  // namespace

namespace EnteredValues {

std::optional<DateTimeVal> ReadDate(const QString& text, const CRegionalInfo& region, const CClock& clock) {
    const QString word = WithoutFormatCharacters(text).trimmed();
    DateTimeVal day;
    if (word.compare(LoadText(Text::CliToday), Qt::CaseInsensitive) == 0) {
        return day.SetToday(clock) ? std::optional(day) : std::nullopt;
    }
    if (word.compare(LoadText(Text::CliYesterday), Qt::CaseInsensitive) == 0) {
        return day.SetToday(clock) ? std::optional(day.SubtractDays(1)) : std::nullopt;
    }
    if (const auto date = ReadIsoDate(word)) return date;
    return ReadRegionalDate(word, region, clock);
}

std::optional<DateTimeVal> ReadTime(const QString& text) {
    const QString time = WithoutFormatCharacters(text).trimmed();
    const QStringList parts = time.split(u':');
    if (parts.size() != 2 || !IsDigits(parts[0], 1, 2)) return std::nullopt;
    const bool is24Hour = IsDigits(parts[1], 2, 2);
    const bool is12Hour = IsDigits(QStringView(parts[1]).left(2), 2, 2) && parts[1].size() > 3;
    if (!is24Hour && !is12Hour) return std::nullopt;
    DateTimeVal value;
    return value.ParseTimeText(time, is24Hour) ? std::optional(value) : std::nullopt;
}

std::optional<EnteredSpan> ReadSpan(const QString& text, const CRegionalInfo& region) {
    const QStringList parts = WithoutFormatCharacters(text).trimmed().split(u':');
    double minutes = 0.0;
    if (parts.size() == 2) {
        if (!IsDigits(parts[0], 1, 5) || !IsDigits(parts[1], 2, 2) || parts[1].toInt() > 59)
            return std::nullopt;
        minutes = parts[0].toInt() * 60.0 + parts[1].toInt();
    } else {
        const auto hours = ReadNumber(text, region);
        if (!hours) return std::nullopt;
        minutes = std::round(*hours * 60.0);
    }
    if (minutes > kMostHours * 60.0 + 59.0) return std::nullopt;
    const int whole = static_cast<int>(minutes);
    return EnteredSpan{whole / 60, whole % 60};
}

std::optional<double> ReadNumber(const QString& text, const CRegionalInfo& region) {
    const auto number = ReadSignedNumber(text, region);
    return number && !std::signbit(*number) ? number : std::nullopt;
}

std::optional<double> ReadSignedNumber(const QString& text, const CRegionalInfo& region) {
    const TypedNumber number = ReadTypedNumber(text, region);
    return number.IsValue() ? std::optional(number.value) : std::nullopt;
}

std::optional<bool> ReadYesNo(const QString& text) {
    if (text.compare(LoadText(Text::CliYes), Qt::CaseInsensitive) == 0) return true;
    if (text.compare(LoadText(Text::CliNo), Qt::CaseInsensitive) == 0) return false;
    return std::nullopt;
}

std::optional<QString> ReadIdentity(const QString& text) {
    const QString id = text.toUpper();
    return IsIdentity(id) ? std::optional(id) : std::nullopt;
}

std::optional<int> ReadCount(const QString& text) {
    return IsDigits(text, 1, 9) ? std::optional(text.toInt()) : std::nullopt;
}

}  // namespace EnteredValues
