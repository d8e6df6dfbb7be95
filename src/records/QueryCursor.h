#pragma once

#include "platform/sqlite/RowTable.h"
#include "platform/sqlite/VARIANT.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class CBeside;
class CSqliteFile;
struct sqlite3_stmt;

/// Whether the next rows are read in a thread of their own while those before them are used. Nothing else
/// may be done with the connection then, until the query is at its end or closed.
enum class Ahead { No, Yes };

/// The rows of one query, walked forward. A buffered cursor has read them all when it is opened and holds no
/// lock; the other reads row by row and holds the store's read lock until the end, Close or a failure.
class QueryCursor {
 public:
    QueryCursor();
    ~QueryCursor();
    QueryCursor(const QueryCursor&) = delete;
    QueryCursor& operator=(const QueryCursor&) = delete;

    /// Takes a prepared statement that only reads and stands on its first row then. False when it can't be
    /// read: the file has noted why.
    [[nodiscard]] bool Open(CSqliteFile& file, sqlite3_stmt* statement, bool buffered);
    void Close();
    [[nodiscard]] bool IsEof() const { return m_statement == nullptr && m_at >= m_buffer.size(); }
    [[nodiscard]] bool Next();

    /// A value of the current row; empty without a row or column. Integers as VT_I4 (their low 32 bits),
    /// floats as VT_R8.
    [[nodiscard]] VARIANT Value(int column) const;
    /// Moves the remaining rows into a table, so many at most; without more the cursor is at its end then.
    /// Those of one query are taken all ahead, or none.
    [[nodiscard]] bool Take(RowTable& out, std::size_t most, Ahead ahead = Ahead::No);

    /// The table of the first column, empty for a query of none. Known until Close.
    [[nodiscard]] const QByteArray& Table() const { return m_table; }
    /// Place of a column by its name, -1 when the query lacks it.
    [[nodiscard]] int ColumnOf(const QString& name) const;

 private:
    void Describe();
    [[nodiscard]] bool Step();
    [[nodiscard]] bool Follow(int result);
    [[nodiscard]] VARIANT StatementValue(int column) const;
    [[nodiscard]] int Fetch(RowTable& out, std::size_t most) const;
    [[nodiscard]] int TakeFetched(RowTable& out);
    void TakeRow(RowTable& out) const;
    void TakeBuffered(RowTable& out) const;

    CSqliteFile* m_file = nullptr;
    sqlite3_stmt* m_statement = nullptr;  ///< standing on a row, or null
    QByteArray m_table;
    std::vector<QString> m_names;
    std::vector<RowColumnType> m_types;
    std::vector<std::vector<VARIANT>> m_buffer;
    std::size_t m_at = 0;                 ///< current row of the buffer
    RowTable m_next;                      ///< filled ahead
    std::optional<int> m_fetched;         ///< the step behind m_next, once it is filled
    std::unique_ptr<CBeside> m_fetching;  ///< has the statement and both of these; none: nobody
};
