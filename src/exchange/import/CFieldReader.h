#pragma once

#include "calendar/DateTimeVal.h"
#include "records/TextAddressCache.h"

#include <QString>
#include <optional>
#include <vector>

struct FieldRow;

/// A field of a line that isn't read as it is written.
struct Misreading {
    static constexpr qsizetype kShown = 30;  ///< so much of a field is shown

    const FieldRow* field;
    QString text;  ///< the beginning of what is written
    QString read;  ///< what it was read as; empty: it was left out
};
using Misreadings = std::vector<Misreading>;

/// Hours and minutes.
struct LengthOfTime {
    int hours;
    int minutes;
};

/// What was made of a text.
template <class Value>
struct TextReading {
    std::optional<Value> value;
    std::optional<QString>
        note;  ///< what it was read as, empty where it was left out; none where nothing is to tell
};

/// Reads the values of the fields of lines, by the regional values in use. What can't be read is none, and of
/// a number only its beginning may be read; either is noted, so that the user can be told. What was made of a
/// text is known when the text comes again.
class CFieldReader {
 public:
    /// clock24: times count to 24, and a word for the half of the day is dropped, on purpose.
    explicit CFieldReader(bool clock24) : m_clock24(clock24) {}

    void BeginLine() { m_misread.clear(); }
    /// What of the line isn't read as it is written.
    [[nodiscard]] const Misreadings& Misread() const { return m_misread; }

    [[nodiscard]] std::optional<DateTimeVal> Time(const FieldRow& field, const QString& text);
    /// Decimal hours: 7.99 is 7:59. A part of a minute counts from half of it on.
    [[nodiscard]] std::optional<LengthOfTime> Length(const FieldRow& field, const QString& text);
    [[nodiscard]] std::optional<float> Number(const FieldRow& field, const QString& text);
    /// The shortest text of a number; empty for what isn't one.
    [[nodiscard]] QString Reading(const FieldRow& field, const QString& text);
    [[nodiscard]] bool Flag(const FieldRow& field, const QString& text);

    /// A value that was read but can't be had by the record.
    void NoteLeftOut(const FieldRow& field, const QString& text);

 private:
    template <class Value>
    using Known = TextAddressCache<TextReading<Value>, 4096>;

    template <class Value>
    [[nodiscard]] std::optional<Value> Take(const FieldRow& field, const QString& text,
                                            const TextReading<Value>& reading);
    [[nodiscard]] TextReading<DateTimeVal> ReadTime(const QString& text) const;

    bool m_clock24;
    Misreadings m_misread;
    Known<DateTimeVal> m_times;
    Known<LengthOfTime> m_lengths;
    Known<float> m_numbers;
};
