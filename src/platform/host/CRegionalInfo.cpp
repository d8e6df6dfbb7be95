#include "platform/host/CRegionalInfo.h"

#include <QLocale>
#include <algorithm>
#include <cstdlib>

namespace {

/// The name of the locale in charge of a category: LC_ALL before the category's own before LANG.
QByteArray LocaleName(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"}) {
        QByteArray name = qgetenv(variable);
        if (!name.isEmpty()) return name;
    }
    return {};
}

/// The locale itself, from Qt's own data, so that it need not be generated on this machine. Nothing for "C",
/// "POSIX" and names nobody knows.
std::optional<QLocale> LocaleOf(const char* category) {
    const QLocale locale(QString::fromUtf8(LocaleName(category)));
    if (locale.language() == QLocale::C) return std::nullopt;
    return locale;
}

/// A pattern without its quoted parts: "d 'de' MMMM" becomes "d  MMMM".
QString WithoutQuoted(const QString& pattern) {
    QString rest;
    bool quoted = false;
    for (const QChar sign : pattern) {
        if (sign == u'\'') {
            quoted = !quoted;
        } else if (!quoted) {
            rest += sign;
        }
    }
    return rest;
}

QString DatePattern(const QLocale& locale) {
    return WithoutQuoted(locale.dateFormat(QLocale::ShortFormat));
}

/// "M/d/yy" is month-day-year, "dd.MM.yy" day-month-year, "yyyy-MM-dd" year-month-day.
QString DateOrderOf(const QLocale& locale) {
    const QString pattern = DatePattern(locale);
    const qsizetype day = pattern.indexOf(u'd');
    const qsizetype month = pattern.indexOf(u'M');
    const qsizetype year = pattern.indexOf(u'y');
    if (year < day && year < month) return QStringLiteral("2");
    return month < day ? QStringLiteral("0") : QStringLiteral("1");
}

/// What stands between two parts of a date: a full stop and a blank in "d. M. yyyy".
QString DateSeparatorOf(const QLocale& locale) {
    const QString pattern = DatePattern(locale);
    const auto isPart = [](QChar sign) { return sign == u'd' || sign == u'M' || sign == u'y'; };
    const auto part = std::find_if(pattern.begin(), pattern.end(), isPart);
    const auto behind = std::find_if_not(part, pattern.end(), isPart);
    return QString(behind, std::distance(behind, std::find_if(behind, pattern.end(), isPart)));
}

/// A pattern with a marker for AM and PM counts to 12, any other to 24.
QString TimeFormatOf(const QLocale& locale) {
    const QString pattern = WithoutQuoted(locale.timeFormat(QLocale::ShortFormat));
    return pattern.contains(u'a', Qt::CaseInsensitive) ? QStringLiteral("0") : QStringLiteral("1");
}

/// Only the customary units of the United States count as not metric; the British locale says metric, as the
/// C library's does.
QString MeasureOf(const QLocale& locale) {
    return locale.measurementSystem() == QLocale::ImperialUSSystem ? QStringLiteral("1")
                                                                   : QStringLiteral("0");
}

QString DecimalSeparatorOf(const QLocale& locale) {
    return locale.decimalPoint();
}

QString GroupSeparatorOf(const QLocale& locale) {
    return locale.groupSeparator();
}

/// Qt counts Monday as 1 and Sunday as 7.
QString FirstDayOf(const QLocale& locale) {
    return QString::number(locale.firstDayOfWeek() % 7);
}

QString CurrencyOf(const QLocale& locale) {
    return locale.currencySymbol(QLocale::CurrencyIsoCode);
}

struct LocaleRow {
    LocaleType type;
    const char* category;
    QString (*read)(const QLocale&);
};
/// The number of fraction digits has no row: the environment doesn't say it.
constexpr LocaleRow kLocaleRows[] = {
    {LocaleType::DecimalSeparator, "LC_NUMERIC", DecimalSeparatorOf},
    {LocaleType::TimeFormat, "LC_TIME", TimeFormatOf},
    {LocaleType::DateOrder, "LC_TIME", DateOrderOf},
    {LocaleType::DateSeparator, "LC_TIME", DateSeparatorOf},
    {LocaleType::Measure, "LC_MEASUREMENT", MeasureOf},
    {LocaleType::GroupSeparator, "LC_NUMERIC", GroupSeparatorOf},
    {LocaleType::FirstDayOfWeek, "LC_TIME", FirstDayOf},
    {LocaleType::Currency, "LC_MONETARY", CurrencyOf},
};

/// First character of a locale's answer, 0 when there is none.
char16_t FirstOf(const CLocaleSource& source, LocaleType type) {
    const std::optional<QString> text = source.GetLocaleInfo(type);
    return text && !text->isEmpty() ? text->front().unicode() : u'\0';
}

/// The first character that can be seen. In Arabic regions a mark that directs the writing stands in front of
/// the separator; alone it would part nothing that a user could type.
char16_t FirstVisibleOf(const CLocaleSource& source, LocaleType type) {
    const QString text = source.GetLocaleInfo(type).value_or(QString());
    const auto isMark = [](QChar sign) { return sign.category() == QChar::Other_Format; };
    const auto* const visible = std::find_if_not(text.begin(), text.end(), isMark);
    return visible == text.end() ? u'\0' : visible->unicode();
}

/// Below 0 or no number counts as 2, above 6 as 6.
int FractionDigits(const CLocaleSource& source) {
    bool isNumber = false;
    const int digits = source.GetLocaleInfo(LocaleType::FractionDigits).value_or(QString()).toInt(&isNumber);
    return !isNumber || digits < 0 ? 2 : std::min(digits, 6);
}

const CRegionalInfo* theRegion = nullptr;

}  // namespace

std::optional<QString> CUserLocale::GetLocaleInfo(LocaleType type) const {
    for (const LocaleRow& row : kLocaleRows) {
        if (row.type != type) continue;
        const std::optional<QLocale> locale = LocaleOf(row.category);
        return locale ? std::optional(row.read(*locale)) : std::nullopt;
    }
    return std::nullopt;
}

CRegionalInfo ReadRegionalInfo(const CLocaleSource& source) {
    CRegionalInfo region;
    if (const char16_t sign = FirstOf(source, LocaleType::DecimalSeparator)) region.decimalChar = sign;
    region.usesDotDecimal = region.decimalChar == u'.';
    region.is24Hour = FirstOf(source, LocaleType::TimeFormat) == u'1';
    const char16_t order = FirstOf(source, LocaleType::DateOrder);
    region.dateOrder = order == u'1' || order == u'2' ? order - u'0' : 0;
    if (const char16_t sign = FirstVisibleOf(source, LocaleType::DateSeparator)) region.dateSeparator = sign;
    region.fractionDigits = FractionDigits(source);
    region.isMetric = FirstOf(source, LocaleType::Measure) == u'0';
    if (const char16_t sign = FirstOf(source, LocaleType::GroupSeparator)) region.groupChar = sign;
    return region;
}

RegionalHabits ReadRegionalHabits(const CLocaleSource& source) {
    RegionalHabits habits;
    bool isNumber = false;
    const int day = source.GetLocaleInfo(LocaleType::FirstDayOfWeek).value_or(QString()).toInt(&isNumber);
    if (isNumber && day >= 0 && day <= 6) habits.firstDayOfWeek = day;
    habits.currency = source.GetLocaleInfo(LocaleType::Currency).value_or(QString());
    return habits;
}

const CRegionalInfo& TheRegion() {
    if (theRegion != nullptr) return *theRegion;
    static const CRegionalInfo kUsers = ReadRegionalInfo(CUserLocale());
    return kUsers;
}

RegionScope::RegionScope(const CRegionalInfo& region) : m_region(region), m_previous(theRegion) {
    theRegion = &m_region;
}

RegionScope::~RegionScope() {
    theRegion = m_previous;
}
