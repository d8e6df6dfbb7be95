#include "exchange/import/RecordLine.h"

#include "calendar/CalendarMath.h"
#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "calendar/ScanText.h"
#include "exchange/text/SplitFields.h"
#include "exchange/text/TextColumns.h"
#include "fields/FieldValue.h"
#include "lang/LoadText.h"
#include "records/FieldDef.h"

#include <algorithm>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLatestYear = 9999;

// --- Dates

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

/// A day that its month doesn't have, 2/30/2026, is refused: nobody means it, and no other day can be told
/// from it.
std::optional<DateTimeVal> DayOf(const QString& text, RecordForm form) {
    DateTimeVal date;
    const bool isRead = form == RecordForm::Older ? ReadOlderDate(text, date) : ReadRegionalDate(text, date);
    const bool isDay = isRead && date.year <= kLatestYear && date.day <= DaysInMonth(date.month, date.year);
    return isDay ? std::optional(date) : std::nullopt;
}

// --- Times

class CTimeFields {
 public:
    CTimeFields(CTRecord& record, CFieldReader& reader) : m_record(record), m_reader(reader) {}

    void Put(const FieldRow& field, const QString& text) {
        switch (field.form) {
            case FieldForm::TimeOfDay:
                return PutTime(field, text);
            case FieldForm::Span:
                return PutLength(field, text);
            case FieldForm::Money:
                return PutMoney(field, text);
            case FieldForm::Flag:
                return PutFlag(field, text);
            default:
                m_record.*std::get<QString CTRecord::*>(field.member) = text;
        }
    }
    /// Rate and amount compute each other. Where the line has both they stay as they are in it: read, written
    /// and read again, a rate would be another one each time. What isn't billable has neither.
    void FinishMoney() {
        for (const auto* money : {&m_rate, &m_amount})
            if (*money && !m_record.isBillable && (*money)->value > 0.0F)
                m_reader.NoteLeftOut(*(*money)->field, (*money)->text);
        if (!m_rate || !m_amount || !m_record.isBillable) return;
        m_record.rate.Set(m_rate->value);
        m_record.amount.Set(m_amount->value);
    }

 private:
    struct Money {
        const FieldRow* field;
        QString text;
        float value;
    };
    void PutTime(const FieldRow& field, const QString& text) {
        const auto time = m_reader.Time(field, text);
        if (time) field.id == FieldId::Start ? m_record.SetStart(*time) : m_record.SetEnd(*time);
    }
    void PutLength(const FieldRow& field, const QString& text) {
        const auto length = m_reader.Length(field, text);
        if (!length) return;
        if (field.id == FieldId::Break) return m_record.SetBreak(length->hours, length->minutes);
        if (m_record.HasStart() && m_record.HasEnd())
            m_record.SetDurationOnly(length->hours, length->minutes);
        else
            m_record.SetDuration(length->hours, length->minutes, true);
    }
    void PutMoney(const FieldRow& field, const QString& text) {
        const auto number = m_reader.Number(field, text);
        if (number && *number < 0.0F) m_reader.NoteLeftOut(field, text);
        if (!number || *number < 0.0F) return;
        (field.id == FieldId::TimeRate ? m_rate : m_amount) = Money{&field, text, *number};
        // Without a length of time the value stands alone.
        static_cast<void>(field.id == FieldId::TimeRate ? m_record.SetRate(*number)
                                                        : m_record.SetAmount(*number));
    }
    void PutFlag(const FieldRow& field, const QString& text) {
        const bool flag = m_reader.Flag(field, text);
        if (field.id == FieldId::Billable)
            m_record.SetBillable(flag);
        else
            m_record.isBilled = flag;
    }

    CTRecord& m_record;
    CFieldReader& m_reader;
    std::optional<Money> m_rate, m_amount;  ///< as the line has them
};

std::vector<TextColumn> OlderTimeColumns() {
    const auto all = TextColumnsOf(RecordKind::Time);
    std::vector<TextColumn> columns(all.begin(), all.end());
    std::erase_if(columns, [](const TextColumn& one) { return one.field->id == FieldId::Break; });
    return columns;
}

std::span<const TextColumn> ColumnsOf(RecordKind kind, RecordForm form) {
    static const std::vector<TextColumn> kOlder = OlderTimeColumns();
    const bool isOlderTime = kind == RecordKind::Time && form == RecordForm::Older;
    return isOlderTime ? std::span<const TextColumn>(kOlder) : TextColumnsOf(kind);
}

// --- Expenses

void PutExpenseField(const FieldRow& field, const QString& text, CERecord& record, CFieldReader& reader) {
    switch (field.form) {
        case FieldForm::Distance:
            record.isDistance = true;
            [[fallthrough]];
        case FieldForm::Money:
            if (const auto number = reader.Number(field, text))
                (record.*std::get<DecimalField CERecord::*>(field.member)).Set(*number);
            return;
        case FieldForm::Flag:
            record.*std::get<bool CERecord::*>(field.member) = reader.Flag(field, text);
            return;
        case FieldForm::Reading:
            record.*std::get<QString CERecord::*>(field.member) = reader.Reading(field, text);
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

}  // namespace

/// The last field of a time takes the rest of its line; the notes of an expense are joined again.
LineCode SplitRecordLine(const QString& line, RecordKind kind, const LineForm& form, QStringList& fields) {
    const auto count = static_cast<qsizetype>(ColumnsOf(kind, form.form).size());
    const int most = kind == RecordKind::Time ? static_cast<int>(count) : 0;
    const LineCode code = SplitFields(line, most, form.delimiters, fields);
    if (code != LineCode::Parsed) return code;
    if (fields.size() < count - 1) return LineCode::TooFewFields;
    JoinNotes(fields, count, form.delimiters.separator);
    fields.resize(count);
    return LineCode::Parsed;
}

bool CRecordLineReader::ReadDate(RecordDate& date) {
    const QString& text = m_fields.front();
    const auto& day = m_days.Get(text, [&] { return DayOf(text, m_form.form); });
    if (day) date.Set(day->month, day->day, day->year);
    return day.has_value();
}

LineCode CRecordLineReader::ReadTime(CTRecord& record) {
    if (!ReadDate(record.date)) return LineCode::BadDate;
    CTimeFields values(record, m_values);
    qsizetype place = 0;
    for (const TextColumn& column : ColumnsOf(RecordKind::Time, m_form.form).subspan(1))
        values.Put(*column.field, m_fields[++place]);
    values.FinishMoney();
    return LineCode::Parsed;
}

LineCode CRecordLineReader::ReadExpense(CERecord& record) {
    if (!ReadDate(record.date)) return LineCode::BadDate;
    bool isPlain = false;
    qsizetype place = 0;
    for (const TextColumn& column : TextColumnsOf(RecordKind::Expense).subspan(1)) {
        const QString& text = m_fields[++place];
        if (column.field->form == FieldForm::Distance) isPlain = text == LoadText(Text::NotApplicable);
        if (!isPlain || !IsOfDistanceEntry(column)) PutExpenseField(*column.field, text, record, m_values);
    }
    return LineCode::Parsed;
}

LineCode CRecordLineReader::Read(const QString& line, CVORec& record) {
    m_values.BeginLine();
    m_fields.resize(0);
    const LineCode code = SplitRecordLine(line, record.Kind(), m_form, m_fields);
    if (code != LineCode::Parsed) return code;
    return record.Kind() == RecordKind::Time ? ReadTime(static_cast<CTRecord&>(record))
                                             : ReadExpense(static_cast<CERecord&>(record));
}

bool FitsTheStore(const CVORec& record) {
    return std::ranges::all_of(TextColumnsOf(record.Kind()), [&record](const TextColumn& column) {
        const FieldForm form = column.field->form;
        const bool isText = form == FieldForm::Text || form == FieldForm::Reading || form == FieldForm::Notes;
        const int most = form == FieldForm::Notes ? kLongTextLength : kTextLength;
        return !isText || TextOf(record, *column.field).size() <= most;
    });
}
