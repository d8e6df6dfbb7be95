#pragma once

#include "exchange/import/RecordLine.h"
#include "exchange/text/CLineReader.h"
#include "records/CVORec.h"

#include <memory>
#include <utility>

/// The records of a text, line by line. A head line is passed over; where it begins with a column of numbers
/// each line loses its first field. An empty line ends the text.
class CRecordLines {
 public:
    CRecordLines(CTextSource& source, RecordKind kind, const LineForm& form);

    enum class Next {
        Record,
        Refused,  ///< Code says why
        End,
        Failed,
        Undecodable
    };
    [[nodiscard]] Next Read();
    /// Of the line that was read last, a head line counted; from 1.
    [[nodiscard]] int Number() const { return m_reader.Number(); }
    /// As it stands in the text, without the field of numbers.
    [[nodiscard]] const QString& Line() const { return m_line; }
    /// Parsed where the record is fine but for a text that its column can't hold.
    [[nodiscard]] LineCode Code() const { return m_code; }
    [[nodiscard]] RefusedLine AsRefused() const;
    /// After Record, and after a refusal with the code Parsed.
    [[nodiscard]] const CVORec& Record() const { return *m_record; }
    /// The same, for the caller to keep.
    [[nodiscard]] std::unique_ptr<CVORec> TakeRecord() { return std::move(m_record); }
    /// What of that line isn't read as it is written.
    [[nodiscard]] const Misreadings& Misread() const { return m_values.Misread(); }

 private:
    [[nodiscard]] CLineReader::Next ReadLine();
    [[nodiscard]] bool PassHead();
    [[nodiscard]] QString HeadWith(Text caption) const;

    CLineReader m_reader;
    RecordKind m_kind;
    LineForm m_form;
    bool m_skipsFirstField = false;
    QString m_line;
    LineCode m_code = LineCode::Parsed;
    std::unique_ptr<CVORec> m_record;
    CRecordLineReader m_values;
};
