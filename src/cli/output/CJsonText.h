#pragma once

#include <QString>

class COutput;

/// Writes JSON (RFC 8259) as it goes, in the order of the calls: documents of scripts keep the order of their
/// fields, and a list of a million records never lies in memory as one text.
class CJsonText {
 public:
    explicit CJsonText(COutput& out) : m_out(out) {}

    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();
    /// Puts the next value on a line of its own.
    void NewLine();
    void Key(const char* name);

    void Null();
    void Flag(bool value);
    void Integer(qint64 value);
    /// The shortest decimal of the value at so many places: 80.125 at 2 gives 80.13, 80 gives 80.0. What is
    /// no number is null.
    void Number(double value, int precision);
    void Text(const QString& value);
    /// An empty text is null.
    void TextOrNull(const QString& value);

 private:
    void BeforeValue();
    COutput& m_out;
    bool m_needsComma = false;
    bool m_onNewLine = false;
};
