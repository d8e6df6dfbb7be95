#pragma once

#include "exchange/text/Delimiters.h"

#include <QString>

/// A text that comes in pieces.
class CTextSource {
 public:
    enum class Next {
        Text,         ///< a piece was appended
        End,          ///< nothing comes any more
        Failed,       ///< nothing more can be read
        Undecodable,  ///< what comes next means nothing in the encoding
    };
    virtual ~CTextSource() = default;
    /// Appends the next piece to the text. Of what can't be decoded, that which stands before it is appended.
    [[nodiscard]] virtual Next Read(QString& text) = 0;
};

/// Takes a text apart into lines. A line doesn't end between two text qualifiers; these stay in it, the line
/// end doesn't.
class CLineReader {
 public:
    /// A longer line can't hold a record that could be stored: it is passed over, and nothing of it kept.
    static constexpr qsizetype kLongestLine = 1'000'000;

    /// The source must outlive the reader.
    CLineReader(CTextSource& source, const Delimiters& delimiters);

    enum class Next { Line, End, Failed, Undecodable };
    /// The end of the text ends the last line; a line that is cut off by a failure isn't given.
    [[nodiscard]] Next ReadLine(QString& line);
    /// Of the line that was read last, or that couldn't be read; from 1.
    [[nodiscard]] int Number() const { return m_number; }
    [[nodiscard]] bool IsTooLong() const { return m_length > kLongestLine; }

 private:
    [[nodiscard]] bool HasCharacter();
    [[nodiscard]] Next EndOfText() const;
    [[nodiscard]] qsizetype EndOfRun(bool& isQuoted) const;
    [[nodiscard]] qsizetype NextEnd(qsizetype from) const;
    void Take(QStringView run, QString& line);

    CTextSource& m_source;
    QChar m_qualifier, m_lineEnd;
    bool m_hasQualifier, m_endsAtCr;
    QString m_piece;
    qsizetype m_place = 0;  ///< in the piece
    CTextSource::Next m_next = CTextSource::Next::Text;
    qsizetype m_length = 0;
    int m_number = 0;
};
