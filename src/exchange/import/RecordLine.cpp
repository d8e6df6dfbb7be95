#include "exchange/import/RecordLine.h"

#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "calendar/ScanText.h"
#include "exchange/text/SplitFields.h"
#include "exchange/text/TextColumns.h"
#include "fields/FieldValue.h"
#include "lang/FormatText.h"
#include "records/FieldDef.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLatestYear = 9999;
constexpr double kMostHours = 32767.0;  ///< what a stored length holds

// --- Values of fields

/// The first separator that parts three numbers decides: 11/19/2026, 19.11.2026, 19-11-2026.
bool ReadOlderDate(const QString& text, DateTimeVal& date) {
    int first = 0, second = 0, year = 0;
    if (ScanText(u"%d/%d/%d"_s, text, {&first, &second, &year}) == 3)
        return date.SetDate(first, second, year);
    if (ScanText(u"%d.%d.%d"_s, text, {&first, &second, &year}) == 3 ||
        ScanText(u"%d-%d-%d"_s, text, {&first, &second, &year}) == 3)
        return date.SetDate(second, first, year);
    return false;
}

bool ReadRegionalDate(const QString& text, DateTimeVal& date) {
    SYSTEMTIME read;
    return ParseDate(TheRegion(), text, read) && date.SetDate(read.wMonth, read.wDay, read.wYear);
}

bool ReadDate(const QString& text, RecordForm form, RecordDate& out) {
    DateTimeVal date;
    const bool isRead = form == RecordForm::Older ? ReadOlderDate(text, date) : ReadRegionalDate(text, date);
    if (!isRead || date.year > kLatestYear) return false;
    out.Set(date.month, date.day, date.year);
    return true;
}

/// 17:05 becomes 5:05 PM. 24:05 becomes 12:05 PM, and that is wanted.
QString RewrittenTime(int hour, int minute) {
    const bool isMorning = hour < 12;
    const int hour12 = hour == 0 ? 12 : hour > 12 ? hour - 12 : hour;
    return FormatText<Text::RewrittenTime>(hour12, minute, LoadText(isMorning ? Text::AmWord : Text::PmWord));
}

std::optional<DateTimeVal> ReadTime(const QString& text, bool clock24) {
    int hour = 0, minute = 0;
    QString word;
    if (ScanText(LoadText(Text::ScanTime24), text, {&hour, &minute}) < 2) return std::nullopt;
    const bool hasWord = ScanText(LoadText(Text::ScanTime12), text, {&hour, &minute, &word}) == 3;
    DateTimeVal time;
    if (!time.ParseTimeText(clock24 || !hasWord ? RewrittenTime(hour, minute) : text, false))
        return std::nullopt;
    return time;
}

struct Length {
    int hours;
    int minutes;
};

/// Decimal hours: 7.99 is 7:59. A part of a minute counts from half of it on.
std::optional<Length> ReadLength(const QString& text) {
    double hours = 0.0;
    if (!ParseDouble(TheRegion(), text, hours) || hours < 0.0 || hours > kMostHours) return std::nullopt;
    const double whole = std::trunc(hours);
    const double exact = (hours - whole) * 60.0;
    const double minutes = std::trunc(exact);
    const bool roundsUp = (exact - minutes) * 10.0 >= 5.0;
    return Length{static_cast<int>(whole), static_cast<int>(minutes) + (roundsUp ? 1 : 0)};
}

std::optional<float> ReadNumber(const QString& text) {
    float number = 0.0F;
    return ParseFloat(TheRegion(), text, number) ? std::optional(number) : std::nullopt;
}

/// The shortest text of the number; what wasn't one isn't kept.
QString ReadingOf(const QString& text) {
    constexpr int kUsual = -1, kMost = 15;
    double number = 0.0;
    if (!ParseDouble(TheRegion(), text, number)) return {};
    QString reading = FormatNumber(TheRegion(), number, kUsual);
    double read = 0.0;
    if (ParseDouble(TheRegion(), reading, read) && read == number) return reading;
    reading = QString::number(number, 'g', kMost);
    return reading.replace(u'.', QChar(TheRegion().decimalChar));
}

bool IsYes(const QString& text) {
    return text == LoadText(Text::YesWord);
}

// --- Times

class CTimeFields {
 public:
    CTimeFields(CTRecord& record, bool clock24) : m_record(record), m_clock24(clock24) {}

    void Put(const FieldRow& field, const QString& text) {
        switch (field.form) {
            case FieldForm::TimeOfDay:
                return PutTime(field.id, text);
            case FieldForm::Span:
                return PutLength(field.id, text);
            case FieldForm::Money:
                return PutMoney(field.id, text);
            case FieldForm::Flag:
                return PutFlag(field.id, IsYes(text));
            default:
                m_record.*std::get<QString CTRecord::*>(field.member) = text;
        }
    }
    /// Each of the two computes the other. Where the line has both they stay as they are in it: read, written
    /// and read again, a rate would be another one each time.
    void RestoreMoney() {
        if (m_rate == kNone || m_amount == kNone || !m_record.isBillable) return;
        m_record.rate.Set(m_rate);
        m_record.amount.Set(m_amount);
    }

 private:
    void PutTime(FieldId id, const QString& text) {
        const auto time = ReadTime(text, m_clock24);
        if (time) id == FieldId::Start ? m_record.SetStart(*time) : m_record.SetEnd(*time);
    }
    void PutLength(FieldId id, const QString& text) {
        const auto length = ReadLength(text);
        if (!length) return;
        if (id == FieldId::Break) return m_record.SetBreak(length->hours, length->minutes);
        if (m_record.HasStart() && m_record.HasEnd())
            m_record.SetDurationOnly(length->hours, length->minutes);
        else
            m_record.SetDuration(length->hours, length->minutes, true);
    }
    void PutMoney(FieldId id, const QString& text) {
        const auto number = ReadNumber(text);
        if (!number || *number < 0.0F) return;
        (id == FieldId::TimeRate ? m_rate : m_amount) = *number;
        // Without a length of time the value stands alone.
        static_cast<void>(id == FieldId::TimeRate ? m_record.SetRate(*number) : m_record.SetAmount(*number));
    }
    void PutFlag(FieldId id, bool flag) {
        if (id == FieldId::Billable)
            m_record.SetBillable(flag);
        else
            m_record.isBilled = flag;
    }

    CTRecord& m_record;
    bool m_clock24;
    static constexpr float kNone = -1.0F;
    float m_rate = kNone, m_amount = kNone;  ///< as the line has them
};

/// The columns of times in a form.
std::vector<TextColumn> TimeColumns(RecordForm form) {
    const auto all = TextColumnsOf(RecordKind::Time);
    std::vector<TextColumn> columns(all.begin(), all.end());
    if (form == RecordForm::Older)
        std::erase_if(columns, [](const TextColumn& one) { return one.field->id == FieldId::Break; });
    return columns;
}

LineCode ReadTimeLine(const QString& line, const LineForm& form, CTRecord& record) {
    static const std::vector<TextColumn> kPresent = TimeColumns(RecordForm::Present);
    static const std::vector<TextColumn> kOlder = TimeColumns(RecordForm::Older);
    const std::vector<TextColumn>& columns = form.form == RecordForm::Older ? kOlder : kPresent;
    const auto count = static_cast<qsizetype>(columns.size());
    QStringList fields;
    const LineCode code = SplitFields(line, static_cast<int>(count), form.delimiters, fields);
    if (code != LineCode::Parsed) return code;
    if (fields.size() < count - 1) return LineCode::TooFewFields;
    fields.resize(count);
    if (!ReadDate(fields.front(), form.form, record.date)) return LineCode::BadDate;
    CTimeFields values(record, form.clock24);
    for (qsizetype i = 1; i < count; ++i) values.Put(*columns[static_cast<std::size_t>(i)].field, fields[i]);
    values.RestoreMoney();
    return LineCode::Parsed;
}

// --- Expenses

void PutExpenseField(const FieldRow& field, const QString& text, CERecord& record) {
    switch (field.form) {
        case FieldForm::Distance:
            record.isDistance = true;
            [[fallthrough]];
        case FieldForm::Money:
            if (const auto number = ReadNumber(text))
                (record.*std::get<DecimalField CERecord::*>(field.member)).Set(*number);
            return;
        case FieldForm::Flag:
            record.*std::get<bool CERecord::*>(field.member) = IsYes(text);
            return;
        case FieldForm::Reading:
            record.*std::get<QString CERecord::*>(field.member) = ReadingOf(text);
            return;
        default:
            record.*std::get<QString CERecord::*>(field.member) = text;
    }
}

/// The notes are cut into several fields where they hold what looks like the end of one.
void JoinNotes(QStringList& fields, qsizetype count, const QString& separator) {
    if (fields.size() <= count) return;
    const QString notes = fields.mid(count - 1).join(separator);
    fields.resize(count);
    fields.back() = notes;
}

LineCode ReadExpenseLine(const QString& line, const LineForm& form, CERecord& record) {
    const std::span<const TextColumn> columns = TextColumnsOf(RecordKind::Expense);
    const auto count = static_cast<qsizetype>(columns.size());
    QStringList fields;
    const LineCode code = SplitFields(line, 0, form.delimiters, fields);
    if (code != LineCode::Parsed) return code;
    if (fields.size() < count - 1) return LineCode::TooFewFields;
    JoinNotes(fields, count, form.delimiters.separator);
    fields.resize(count);
    if (!ReadDate(fields.front(), form.form, record.date)) return LineCode::BadDate;
    bool isPlain = false;
    for (qsizetype i = 1; i < count; ++i) {
        const TextColumn& column = columns[static_cast<std::size_t>(i)];
        if (column.field->form == FieldForm::Distance) isPlain = fields[i] == LoadText(Text::NotApplicable);
        if (!isPlain || !IsOfDistanceEntry(column)) PutExpenseField(*column.field, fields[i], record);
    }
    return LineCode::Parsed;
}

}  // namespace

LineCode ReadRecordLine(const QString& line, const LineForm& form, CVORec& record) {
    return record.Kind() == RecordKind::Time ? ReadTimeLine(line, form, static_cast<CTRecord&>(record))
                                             : ReadExpenseLine(line, form, static_cast<CERecord&>(record));
}

bool FitsTheStore(const CVORec& record) {
    return std::ranges::all_of(TextColumnsOf(record.Kind()), [&record](const TextColumn& column) {
        const FieldForm form = column.field->form;
        const bool isText = form == FieldForm::Text || form == FieldForm::Reading || form == FieldForm::Notes;
        const int most = form == FieldForm::Notes ? kLongTextLength : kTextLength;
        return !isText || TextOf(record, *column.field).size() <= most;
    });
}
