#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <string>

/// The way out of the program: results to one descriptor, gathered and written in large pieces; notes and
/// complaints to another, at once. Every write is checked: a full device or a closed pipe is a failure of the
/// command, never a crash and never silent.
class COutput {
 public:
    explicit COutput(int results = 1, int notes = 2);

    bool isJson = false;   ///< one JSON document instead of text for people
    bool isQuiet = false;  ///< no notes

    void Put(QByteArrayView utf8);
    /// A line for people: control characters, which a terminal would obey, become blanks.
    void PutLine(const QString& line);
    /// Writes what is gathered. False when that or an earlier write failed; tells why, once.
    [[nodiscard]] bool Finish();
    /// True once a write failed: a caller that writes much can stop early.
    [[nodiscard]] bool IsBroken() const { return m_error != 0; }

    void Note(const QString& text);
    void Complain(const QString& text);
    /// Without a line feed at the end: for questions.
    void NoteBare(const QString& text);
    /// In place of what stands on the terminal's line.
    void Progress(const QString& text);

 private:
    void Flush();
    int m_results;
    int m_notes;
    int m_error = 0;  ///< errno of the first failure
    bool m_told = false;
    std::string m_gathered;
};
