#include "cli/output/CJsonText.h"

#include "cli/output/COutput.h"
#include "cli/output/UnseenCharacters.h"

#include <QList>
#include <algorithm>
#include <cmath>

namespace {

constexpr char kDigits[] = "0123456789abcdef";

void AppendUnit(QByteArray& quoted, char16_t unit) {
    quoted += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) quoted += kDigits[(unit >> shift) & 15];
}

/// What can't be seen is escaped, so that a page or a terminal shows the text and doesn't obey it.
void AppendEscaped(QByteArray& quoted, char32_t character) {
    if (character == U'\n') {
        quoted += "\\n";
    } else if (QChar::requiresSurrogates(character)) {
        AppendUnit(quoted, QChar::highSurrogate(character));
        AppendUnit(quoted, QChar::lowSurrogate(character));
    } else {
        AppendUnit(quoted, static_cast<char16_t>(character));
    }
}

void AppendCharacter(QByteArray& quoted, char32_t character) {
    if (character == U'"' || character == U'\\') quoted += '\\';
    if (IsUnseen(character))
        AppendEscaped(quoted, character);
    else
        quoted += QString::fromUcs4(&character, 1).toUtf8();
}

bool IsPlain(QChar c) {
    return c >= u' ' && c < u'\u007F' && c != u'"' && c != u'\\';
}

/// Nearly all texts: a character is a byte.
QByteArray QuotedPlain(const QString& value) {
    QByteArray quoted(value.size() + 2, '"');
    std::transform(value.begin(), value.end(), quoted.begin() + 1, [](QChar c) { return c.toLatin1(); });
    return quoted;
}

QByteArray Quoted(const QString& value) {
    if (std::all_of(value.begin(), value.end(), IsPlain)) return QuotedPlain(value);
    QByteArray quoted("\"");
    for (const char32_t character : value.toUcs4()) AppendCharacter(quoted, character);
    return quoted += '"';
}

}  // namespace

void CJsonText::BeforeValue() {
    if (m_needsComma) m_out.Put(m_onNewLine ? "," : ", ");
    if (m_onNewLine) m_out.Put("\n");
    m_onNewLine = false;
    m_needsComma = true;
}

void CJsonText::BeginObject() {
    BeforeValue();
    m_out.Put("{");
    m_needsComma = false;
}

void CJsonText::EndObject() {
    m_out.Put("}");
    m_needsComma = true;
}

void CJsonText::BeginArray() {
    BeforeValue();
    m_out.Put("[");
    m_needsComma = false;
}

void CJsonText::EndArray() {
    m_out.Put("]");
    m_needsComma = true;
}

void CJsonText::NewLine() {
    m_onNewLine = true;
}

void CJsonText::Key(const char* name) {
    BeforeValue();
    m_out.Put("\"");
    m_out.Put(name);
    m_out.Put("\": ");
    m_needsComma = false;
}

void CJsonText::Null() {
    BeforeValue();
    m_out.Put("null");
}

void CJsonText::Flag(bool value) {
    BeforeValue();
    m_out.Put(value ? "true" : "false");
}

void CJsonText::Integer(qint64 value) {
    BeforeValue();
    m_out.Put(QByteArray::number(value));
}

void CJsonText::Number(double value, int precision) {
    if (!std::isfinite(value)) return Null();
    BeforeValue();
    QByteArray digits = QByteArray::number(value, 'f', precision);
    if (digits.contains('.'))
        while (digits.endsWith('0') && !digits.endsWith(".0")) digits.chop(1);
    else
        digits += ".0";
    m_out.Put(digits);
}

void CJsonText::Text(const QString& value) {
    BeforeValue();
    m_out.Put(Quoted(value));
}

void CJsonText::TextOrNull(const QString& value) {
    value.isEmpty() ? Null() : Text(value);
}
