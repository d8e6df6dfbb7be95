#pragma once

#include <QString>

/// A number with its display text, made once when the value is set: lists never format while they draw.
struct DecimalField {
    float value = 0.0F;
    QString text;
    bool isSet = false;
    bool isAsRead = false;  ///< not set since its owner read it from a stored text
    int precision = 2;      ///< decimal places; a record sets it from the settings

    /// Rounds to precision and makes the text.
    void Set(float v);
    /// Not set, as a new field is: 0 without a text.
    void Reset();
    /// Set of the source's value: rounded to this precision, and set even if the source wasn't.
    void Copy(const DecimalField& source);

    // Amounts and rates: -1.0 stands for no value.

    void SetNone() { Set(kNone); }
    /// The value; false and 0 without one.
    [[nodiscard]] bool GetMoney(float& out) const;
    /// Empty without a value.
    [[nodiscard]] QString MoneyText() const { return value == kNone ? QString() : text; }

 private:
    static constexpr float kNone = -1.0F;
};

/// A calendar day with its three texts.
struct RecordDate {
    int month = -1;     ///< 1 to 12, -1 when unset
    int day = -1;       ///< 1 to 31, -1 when unset
    int year = -1;      ///< four digits, -1 when unset
    QString longText;   ///< year in full
    QString shortText;  ///< two-digit year
    QString dayText;    ///< month and day only

    void Reset();
    /// Any of the three below 1 unsets the date.
    void Set(int newMonth, int newDay, int newYear);
    void Copy(const RecordDate& source) { *this = source; }
    [[nodiscard]] bool IsSet() const { return month >= 1; }
};

/// A length of time in hours and minutes; hours are not bounded above.
struct SpanField {
    int hours = -1;    ///< -1 when unset
    int minutes = -1;  ///< 0 to 59, -1 when unset
    DecimalField decimal;
    QString clockText;  ///< "--:--" when unset

    SpanField();
    void Reset();
    /// Minutes of 60 and more carry into hours; a negative part unsets the span.
    void Set(int newHours, int newMinutes);
    [[nodiscard]] bool IsSet() const { return hours != -1 && minutes != -1; }
    /// Decimal hours; false and 0 when unset.
    [[nodiscard]] bool GetDecimal(float& out) const;
    void Copy(const SpanField& source);
    /// a less b; unset when b is longer.
    void Subtract(const SpanField& a, const SpanField& b);
};

/// The three durations of a time record.
struct SpanSet {
    SpanField duration;
    SpanField breakTime;
    SpanField effective;  ///< duration less breakTime, never stored

    void Reset();
    void SetBreak(int hours, int minutes);
    void Recompute();
    void Copy(const SpanSet& source);
};
