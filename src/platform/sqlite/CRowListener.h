#pragma once

class CSqliteFile;
struct sqlite3;
struct sqlite3_value;

/// What happens to a row of a table. Stored as these numbers.
enum class RowEvent : int { Added = 1, Modified = 2, Deleted = 3 };

/// A row at the moment of its change; nothing of it outlives the call that hands it over.
class CChangedRow {
 public:
    CChangedRow(sqlite3* db, RowEvent event, const char* table) : m_db(db), m_event(event), m_table(table) {}

    [[nodiscard]] RowEvent Event() const { return m_event; }
    [[nodiscard]] const char* Table() const { return m_table; }
    [[nodiscard]] int ColumnCount() const;
    /// A column as it was; not of a row that is added.
    [[nodiscard]] sqlite3_value* Before(int column) const;
    /// A column as it is from now on; not of a row that is deleted. A whole number in a column of fractions
    /// comes as a whole number.
    [[nodiscard]] sqlite3_value* After(int column) const;

 private:
    sqlite3* m_db;
    RowEvent m_event;
    const char* m_table;
};

/// Hears of the transactions of a file and of each row that they change, rows that triggers change included.
/// No call may change the file.
class CRowListener {
 public:
    virtual ~CRowListener() = default;
    /// A transaction that may change the file has begun: nobody else changes it before its end.
    virtual void OnBegin(CSqliteFile& file) = 0;
    virtual void OnRow(const CChangedRow& row) = 0;
    /// All is changed and about to become durable; the file can be read.
    virtual void OnCommit(CSqliteFile& file) = 0;
    /// What became of the transaction: it is in the file, or nothing of it is.
    virtual void OnEnd(bool isDurable) = 0;
};
