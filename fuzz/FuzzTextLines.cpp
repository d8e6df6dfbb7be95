// A text file of records or list items: its lines, their fields, and the records that they make. The first
// byte says which delimiters, kind and form, the second in which pieces the text comes.
#include "Fuzz.h"
#include "FuzzTexts.h"
#include "exchange/export/RecordText.h"
#include "exchange/import/CRecordLines.h"
#include "exchange/text/SplitFields.h"
#include "exchange/text/TextColumns.h"

#include <QStringList>

namespace {

class CPieces final : public CTextSource {
 public:
    CPieces(const QString& text, qsizetype piece) : m_text(text), m_piece(piece) {}
    [[nodiscard]] Next Read(QString& text) override {
        if (m_at >= m_text.size()) return Next::End;
        text.append(m_text.mid(m_at, m_piece));
        m_at += m_piece;
        return Next::Text;
    }

 private:
    QString m_text;
    qsizetype m_piece;
    qsizetype m_at = 0;
};

Delimiters DelimitersOf(int choice) {
    constexpr QStringView kQualifiers[] = {u"\"", u"'", u""}, kSeparators[] = {u",", u";", u"\t", u"\""};
    const QStringView qualifier = kQualifiers[choice % 3];
    return {qualifier.toString(), kSeparators[choice / 3 % 4].toString(),
            choice / 12 % 2 == 0 ? QStringLiteral("\n") : QStringLiteral("|")};
}

QStringList LinesOf(const QString& text, qsizetype piece, const Delimiters& delimiters) {
    CPieces source(text, piece);
    CLineReader reader(source, delimiters);
    QStringList lines;
    QString line;
    while (reader.ReadLine(line) == CLineReader::Next::Line) lines.append(line);
    return lines;
}

void TakeApart(const QString& line, const Delimiters& delimiters) {
    for (const int most : {0, 1, 2, 15}) {
        QStringList fields;
        static_cast<void>(SplitFields(line, most, delimiters, fields));
        Demand(most == 0 || fields.size() <= most, "there are no more fields than wanted");
        Demand(fields.join(QString()).size() <= line.size(), "fields are no longer than their line");
    }
    Demand(WithoutFirstField(line, delimiters).size() <= line.size(), "a line doesn't grow");
}

/// Whether nothing in the columns looks like a delimiter.
bool IsPlain(const CVORec& record) {
    for (const TextColumn& column : TextColumnsOf(record.Kind()))
        for (const QChar sign : TextIn(column, record))
            if (sign == u'"' || sign == u'\n' || sign == u'\r') return false;
    return true;
}

/// What was read once stays what it is when it is written and read again.
void WriteAndRead(const CVORec& record) {
    if (!IsPlain(record)) return;
    CPieces source(LineOf(record.Kind(), FieldsIn(record), PresetDelimiters()), 1000);
    CRecordLines lines(source, record.Kind(), {.delimiters = PresetDelimiters()});
    if (lines.Read() != CRecordLines::Next::Record) return;  // a date that its own form can't be read from
    for (const TextColumn& column : TextColumnsOf(record.Kind()))
        if (column.field->form == FieldForm::Text || column.field->form == FieldForm::Notes)
            Demand(TextIn(column, lines.Record()) == TextIn(column, record), "a text comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LoadTexts();
    CInput input(data, size);
    const int choice = input.Byte();
    const qsizetype piece = 1 + input.Byte();
    const QString text = QString::fromUtf8(input.Rest());
    const Delimiters delimiters = DelimitersOf(choice);
    const QStringList whole = LinesOf(text, text.size() + 1, delimiters);
    Demand(LinesOf(text, piece, delimiters) == whole, "the pieces don't matter");
    for (const QString& line : whole) TakeApart(line, delimiters);

    CPieces source(text, piece);
    CRecordLines lines(source, choice >= 128 ? RecordKind::Expense : RecordKind::Time,
                       {.delimiters = delimiters,
                        .form = choice / 24 % 2 == 0 ? RecordForm::Present : RecordForm::Older,
                        .clock24 = choice / 48 % 2 != 0});
    for (auto next = lines.Read(); next != CRecordLines::Next::End; next = lines.Read())
        if (next == CRecordLines::Next::Record) WriteAndRead(lines.Record());
    return 0;
}
