#include "exchange/import/CFieldReader.h"

#include "calendar/CalendarMath.h"
#include "calendar/NumberText.h"
#include "calendar/ScanText.h"
#include "lang/FormatText.h"
#include "records/FieldTexts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMostHours = 32767.0;  ///< what a stored length holds

/// 17:05 becomes 5:05 PM. 24:05 becomes 12:05 PM, and that is wanted.
QString RewrittenTime(int hour, int minute) {
    const bool isMorning = hour < 12;
    const int hour12 = hour == 0 ? 12 : hour > 12 ? hour - 12 : hour;
    return FormatText<Text::RewrittenTime>(hour12, minute, LoadText(isMorning ? Text::AmWord : Text::PmWord));
}

bool HasWord(const QString& text) {
    int hour = 0, minute = 0;
    QString word;
    return ScanText(LoadText(Text::ScanTime12), text, {&hour, &minute, &word}) == 3;
}

std::optional<DateTimeVal> AsItStands(const QString& text) {
    DateTimeVal time;
    return time.ParseTimeText(text, false) ? std::optional(time) : std::nullopt;
}

/// The shortest text from which the number is read again.
QString TextOfNumber(double number) {
    constexpr int kUsual = -1, kMost = 15;
    QString text = FormatNumber(TheRegion(), number, kUsual);
    double read = 0.0;
    if (ParseDouble(TheRegion(), text, read) && read == number) return text;
    text = QString::number(number, 'g', kMost);
    return text.replace(u'.', QChar(TheRegion().decimalChar));
}

/// Digits with a decimal character at most: most numbers are, and nothing more has to be looked at.
bool IsPlainNumber(const QString& text) {
    return std::ranges::all_of(text, [](QChar c) {
        return (c >= u'0' && c <= u'9') || c == u'.' || c == QChar(TheRegion().decimalChar);
    });
}

bool IsUnset(const QString& text) {
    return text.isEmpty() || text == NoTimeText();
}

/// What can't be read is told of, unless it says that there is nothing.
template <class Value>
TextReading<Value> LeftOut(const QString& text) {
    return {std::nullopt, IsUnset(text) ? std::nullopt : std::optional(QString())};
}

/// "1,234.50" is read as 1 where the comma isn't the decimal character: how to tell of it, if there is need.
std::optional<QString> NoteIfCut(const QString& text, double number) {
    if (IsPlainNumber(text) || ReadsWhole(TheRegion(), text)) return std::nullopt;
    return TextOfNumber(number);
}

std::optional<DateTimeVal> TimeOf(const QString& text, bool clock24) {
    int hour = 0, minute = 0;
    if (ScanText(LoadText(Text::ScanTime24), text, {&hour, &minute}) < 2) return std::nullopt;
    return AsItStands(clock24 || !HasWord(text) ? RewrittenTime(hour, minute) : text);
}

TextReading<LengthOfTime> ReadLength(const QString& text) {
    double hours = 0.0;
    if (!ParseDouble(TheRegion(), text, hours) || hours < 0.0 || hours > kMostHours)
        return LeftOut<LengthOfTime>(text);
    const double whole = std::trunc(hours);
    const double exact = (hours - whole) * 60.0;
    const double minutes = std::trunc(exact);
    const bool roundsUp = (exact - minutes) * 10.0 >= 5.0;
    return {LengthOfTime{static_cast<int>(whole), static_cast<int>(minutes) + (roundsUp ? 1 : 0)},
            NoteIfCut(text, hours)};
}

TextReading<float> ReadNumber(const QString& text) {
    float number = 0.0F;
    if (!ParseFloat(TheRegion(), text, number)) return LeftOut<float>(text);
    return {number, NoteIfCut(text, static_cast<double>(number))};
}

TextReading<QString> ReadReading(const QString& text) {
    double number = 0.0;
    if (!ParseDouble(TheRegion(), text, number)) return LeftOut<QString>(text);
    return {TextOfNumber(number), NoteIfCut(text, number)};
}

}  // namespace

// --- Notes

void CFieldReader::NoteLeftOut(const FieldRow& field, const QString& text) {
    if (!IsUnset(text)) m_misread.push_back({&field, text.left(Misreading::kShown), {}});
}

/// The value, and the note on it stands among those of the line.
template <class Value>
std::optional<Value> CFieldReader::Take(const FieldRow& field, const QString& text,
                                        const TextReading<Value>& reading) {
    if (reading.note) m_misread.push_back({&field, text.left(Misreading::kShown), *reading.note});
    return reading.value;
}

// --- Values

TextReading<DateTimeVal> CFieldReader::ReadTime(const QString& text) const {
    const auto time = TimeOf(text, m_clock24);
    if (!time) return LeftOut<DateTimeVal>(text);
    if (!m_clock24 || !HasWord(text)) return {time, std::nullopt};
    const auto withItsWord = AsItStands(text);
    if (withItsWord && withItsWord->Hour24() == time->Hour24()) return {time, std::nullopt};
    return {time, FormatTimeOfDay(TheRegion(), time->hour12, time->minute, time->isPm == 1)};
}

std::optional<DateTimeVal> CFieldReader::Time(const FieldRow& field, const QString& text) {
    return Take(field, text, m_times.Get(text, [&] { return ReadTime(text); }));
}

std::optional<LengthOfTime> CFieldReader::Length(const FieldRow& field, const QString& text) {
    return Take(field, text, m_lengths.Get(text, [&] { return ReadLength(text); }));
}

std::optional<float> CFieldReader::Number(const FieldRow& field, const QString& text) {
    return Take(field, text, m_numbers.Get(text, [&] { return ReadNumber(text); }));
}

/// Hardly two are the same.
QString CFieldReader::Reading(const FieldRow& field, const QString& text) {
    return Take(field, text, ReadReading(text)).value_or(QString());
}

/// What is neither of the two words is a no.
bool CFieldReader::Flag(const FieldRow& field, const QString& text) {
    if (text == LoadText(Text::YesWord)) return true;
    const QString& no = LoadText(Text::NoWord);
    if (!text.isEmpty() && text != no) m_misread.push_back({&field, text.left(Misreading::kShown), no});
    return false;
}
