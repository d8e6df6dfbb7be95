#pragma once

#include "exchange/import/CFieldReader.h"
#include "exchange/text/Delimiters.h"
#include "exchange/text/LineCode.h"

#include <QString>
#include <QStringList>

class CERecord;
class CTRecord;
class CVORec;
enum class RecordKind : int;
struct RecordDate;

/// The two forms of a line. In the older one times have no break, and the separators of a date say the order
/// of its parts, whatever the region.
enum class RecordForm : int { Older = 2, Present = 4 };

/// How lines are read.
struct LineForm {
    Delimiters delimiters;
    RecordForm form = RecordForm::Present;
    bool clock24 = false;  ///< times count to 24; a word for the half of the day is dropped then, on purpose
};

/// Takes a line of a kind of records apart into as many fields as it has columns. On failure the fields mean
/// nothing.
[[nodiscard]] LineCode SplitRecordLine(const QString& line, RecordKind kind, const LineForm& form,
                                       QStringList& fields);
/// Reads lines of records, all in one form.
class CRecordLineReader {
 public:
    explicit CRecordLineReader(const LineForm& form) : m_form(form), m_values(form.clock24) {}

    /// Fills an empty record from a line, by the record's own rules: the values are set in their order as if
    /// a user entered them. A time, a length or a number that can't be read stays unset. Rate and amount of a
    /// billable time stay as the line has them where it has both.
    [[nodiscard]] LineCode Read(const QString& line, CVORec& record);
    /// What of that line isn't read as it is written.
    [[nodiscard]] const Misreadings& Misread() const { return m_values.Misread(); }

 private:
    [[nodiscard]] LineCode ReadTime(CTRecord& record);
    [[nodiscard]] LineCode ReadExpense(CERecord& record);
    [[nodiscard]] bool ReadDate(RecordDate& date);

    LineForm m_form;
    CFieldReader m_values;
    QStringList m_fields;
    TextAddressCache<std::optional<DateTimeVal>, 16384> m_days;  ///< as many as a lifetime has
};
/// Whether no text of a record is longer than its column.
[[nodiscard]] bool FitsTheStore(const CVORec& record);
