#pragma once

#include "exchange/text/Delimiters.h"

#include <QString>
#include <QStringList>

enum class RecordKind : int;

/// Looks whether the lines of an export can be imported again as they are. Nothing in a line marks that a
/// text of it holds a delimiter, so what a reader makes of the line is the only proof.
class CReadBack {
 public:
    explicit CReadBack(const Delimiters& delimiters) : m_delimiters(delimiters) {}

    // The lines of a file in their order, with their ends.

    void TakeHead(const QString& line);
    void TakeRecord(RecordKind kind, const QStringList& fields, const QString& line);
    void TakeItem(const QStringList& fields, const QString& line);

    /// How many lines don't come back.
    [[nodiscard]] int LostCount() const { return m_lost; }
    /// Which they are; empty where all come back.
    [[nodiscard]] QString Words() const;

 private:
    void Note(const QString& line, bool comesBack);
    [[nodiscard]] bool MayBeLost(const QStringList& fields) const;
    [[nodiscard]] bool IsOneLine(const QString& line, QString& read) const;

    Delimiters m_delimiters;
    int m_lines = 0;
    int m_lost = 0;
    int m_firstLost = 0;  ///< its number, from 1
    QString m_firstLine;  ///< its beginning
};
