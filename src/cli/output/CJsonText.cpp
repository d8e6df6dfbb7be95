#include "cli/output/CJsonText.h"

#include "cli/output/COutput.h"

#include <cmath>

namespace {

QByteArray Quoted(const QString& value) {
    static constexpr char kDigits[] = "0123456789abcdef";
    const QByteArray utf8 = value.toUtf8();
    QByteArray quoted;
    quoted.reserve(utf8.size() + 2);
    quoted += '"';
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (c == '\n') {
            quoted += "\\n";
        } else if (byte < 0x20 || byte == 0x7F) {
            quoted += "\\u00";
            quoted += kDigits[byte >> 4];
            quoted += kDigits[byte & 15];
        } else {
            quoted += c;
        }
    }
    quoted += '"';
    return quoted;
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
