#pragma once

#include <QString>
#include <optional>

/// What a locale can be asked for.
enum class LocaleType {
    DecimalSeparator,
    TimeFormat,
    DateOrder,
    DateSeparator,
    FractionDigits,
    Measure,
    GroupSeparator,
    FirstDayOfWeek,
    Currency
};

/// Answers questions about the user's regional settings, each as a short text; nothing where it can't be
/// read. TimeFormat "1" is 24 hours, "0" 12 hours. DateOrder "0" month-day-year, "1" day-month-year, "2"
/// year-month-day. Measure "0" is metric, "1" is not. FirstDayOfWeek is "0" for Sunday to "6" for Saturday,
/// Currency the three letters of ISO 4217.
class CLocaleSource {
 public:
    virtual ~CLocaleSource() = default;
    [[nodiscard]] virtual std::optional<QString> GetLocaleInfo(LocaleType type) const = 0;
};

/// The locale of the user's session (environment variables LC_ALL, LC_NUMERIC, LC_TIME, LC_MEASUREMENT,
/// LC_MONETARY, LANG).
class CUserLocale final : public CLocaleSource {
 public:
    [[nodiscard]] std::optional<QString> GetLocaleInfo(LocaleType type) const override;
};

/// How numbers, dates and times look for this user. A plain value with defaults for what can't be read.
struct CRegionalInfo {
    bool usesDotDecimal = true;     ///< decimalChar is the full stop
    char16_t decimalChar = u'.';    ///< first character of the decimal separator
    bool is24Hour = false;          ///< times are written 00:00 to 23:59, without AM and PM
    int dateOrder = 0;              ///< 0 month-day-year, 1 day-month-year, 2 year-month-day
    char16_t dateSeparator = u'/';  ///< first visible character of the date separator
    int fractionDigits = 2;         ///< 0 to 6
    bool isMetric = false;
    char16_t groupChar = u',';  ///< first character of what parts groups of digits: 1,234,567

    bool operator==(const CRegionalInfo&) const = default;
};

/// What the region proposes for settings that are the user's own. Nothing where it isn't known.
struct RegionalHabits {
    std::optional<int> firstDayOfWeek;  ///< 0 Sunday to 6 Saturday
    QString currency;                   ///< three letters

    bool operator==(const RegionalHabits&) const = default;
};

[[nodiscard]] RegionalHabits ReadRegionalHabits(const CLocaleSource& source);

/// Reads all values; each that can't be read takes its default.
[[nodiscard]] CRegionalInfo ReadRegionalInfo(const CLocaleSource& source);

/// The regional values in use: read from the user's locale at the first call, then kept for the life of the
/// process (a regional change takes effect at the next start).
[[nodiscard]] const CRegionalInfo& TheRegion();

/// Puts other regional values in place for a scope and takes them out at its end: those that the user has
/// chosen instead of the region's, or those of a test.
class RegionScope {
 public:
    explicit RegionScope(const CRegionalInfo& region);
    ~RegionScope();
    RegionScope(const RegionScope&) = delete;
    RegionScope& operator=(const RegionScope&) = delete;

 private:
    CRegionalInfo m_region;
    const CRegionalInfo* m_previous;
};
