#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <optional>
#include <vector>

class CSqliteFile;
struct sqlite3_stmt;

/// The checksums of a table's rows, in a table of their own beside it ("NAME_checks"): a flipped bit within a
/// value fits the file's format and would pass unseen. A row has a checksum or none. Triggers take it away
/// with the row and with every change of it, whatever program makes that, so a row that another program has
/// written counts as unchecked, not as damaged. A checksum without its row says that the row is lost.
class RowChecks {
 public:
    /// A column of the table's key, with the type that it is declared with.
    struct Key {
        QByteArray name;
        QByteArray type;
    };
    /// columns: all of the table's, those of the key among them.
    RowChecks(const QByteArray& table, const std::vector<Key>& keys, const QByteArrayList& columns);

    /// Fits the names of tables of checksums (GLOB).
    static constexpr char kPattern[] = "*_checks";
    /// That of a table.
    [[nodiscard]] static QByteArray NameOf(const QByteArray& table) { return table + "_checks"; }

    /// Whether the file has them; nothing when it can't be asked.
    [[nodiscard]] std::optional<bool> AreThere(CSqliteFile& file) const;
    /// Makes table and triggers where they are missing, and the checksums of all rows that have none.
    [[nodiscard]] bool Make(CSqliteFile& file) const;
    /// Whether a row has no checksum; nothing when it can't be asked.
    [[nodiscard]] std::optional<bool> AreMissing(CSqliteFile& file) const;
    [[nodiscard]] bool Fill(CSqliteFile& file) const;

    /// Of one row, its key bound to ?1 and further: writes its checksum anew.
    [[nodiscard]] const QByteArray& NoteSql() const { return m_note; }
    /// The same with a checksum that is known, bound behind the key: nothing is looked for.
    [[nodiscard]] const QByteArray& PutSql() const { return m_put; }
    /// Of one row: a row of 1 when it fits its checksum, 0 when it doesn't, none when it has no checksum.
    [[nodiscard]] const QByteArray& CompareSql() const { return m_compare; }
    /// The keys of rows that don't fit, then those of checksums without a row.
    [[nodiscard]] const QByteArray& FaultsSql() const { return m_faults; }

 private:
    QByteArray m_name;  ///< of the table of checksums
    QByteArray m_make;  ///< the statements that make it and its triggers
    QByteArray m_fill;
    QByteArray m_missing;
    QByteArray m_note;
    QByteArray m_put;
    QByteArray m_compare;
    QByteArray m_faults;
};
