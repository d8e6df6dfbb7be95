#pragma once

#include "platform/sqlite/RowChecks.h"
#include "platform/sqlite/VARIANT.h"
#include "records/FieldDef.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QStringList>
#include <atomic>
#include <optional>
#include <span>
#include <vector>

class CSqliteFile;
class CStoredRows;
struct sqlite3_stmt;

/// One of the store's tables: its columns by name and the statements that write a row. The key is the last
/// column.
class CStoreTable {
 public:
    /// Looks at a table of the store; nothing when it can't be read: the file has noted why.
    [[nodiscard]] static std::optional<CStoreTable> Look(CSqliteFile& file, const QByteArray& name);
    /// Makes the table of a record's columns, and an index of days where it has a date. One that is there
    /// already stays.
    [[nodiscard]] static bool Make(CSqliteFile& file, const QString& name, std::span<const FieldDef> fields);

    /// The names of the store's tables, but for those of checksums; nothing when they can't be read.
    [[nodiscard]] static std::optional<QByteArrayList> Names(CSqliteFile& file);
    /// Makes the checksums of a table that has none: of a store that an earlier version made. False when they
    /// can't be made; rows are written without then.
    [[nodiscard]] bool MakeChecks(CSqliteFile& file);

    [[nodiscard]] const std::vector<QString>& Columns() const { return m_columns; }
    [[nodiscard]] const QString& KeyColumn() const { return m_columns.back(); }
    /// Whether the columns are those of a record, in its order.
    [[nodiscard]] bool Fits(std::span<const FieldDef> fields) const;

    /// Adding rows to the table, in three steps: the one between the other two may be another thread's.
    class Adding {
     public:
        /// Touches nothing but these statements and the rows. It ends with the first row that can't be added,
        /// and nothing is added after that.
        void Run(const CStoredRows& rows);
        /// May be asked by any thread.
        [[nodiscard]] bool HasFailed() const { return m_failed != nullptr; }

     private:
        friend class CStoreTable;
        sqlite3_stmt* m_insert = nullptr;
        sqlite3_stmt* m_putCheck = nullptr;             ///< null where the table has no checksums
        std::atomic<sqlite3_stmt*> m_failed = nullptr;  ///< one of them
    };
    /// Each is false on failure: the file has noted why.
    [[nodiscard]] bool Prepare(CSqliteFile& file, Adding& adding) const;
    [[nodiscard]] bool Finish(CSqliteFile& file, Adding& adding) const;

    /// All of it at once, with the same failures.
    [[nodiscard]] bool Insert(CSqliteFile& file, const CStoredRows& rows) const;
    /// Overwrites the row of a key by another one; found tells whether there was one.
    [[nodiscard]] bool Modify(CSqliteFile& file, const QString& key, const CStoredRows& row,
                              bool& found) const;
    /// Whether the row of a key is as it was written; true also for one without a checksum.
    [[nodiscard]] bool IsAsWritten(CSqliteFile& file, const QString& key) const;
    /// The keys of rows that aren't as they were written, and of such as are gone without having been
    /// deleted.
    [[nodiscard]] bool FindFaults(CSqliteFile& file, QStringList& keys) const;

 private:
    explicit CStoreTable(std::vector<QString> columns) : m_columns(std::move(columns)) {}
    void Compose(const QByteArray& name);
    [[nodiscard]] bool PutCheck(CSqliteFile& file, const CStoredRows& row) const;

    std::vector<QString> m_columns;
    mutable const FieldDef* m_fitting = nullptr;  ///< the columns that were found to fit: asked at each write
    QByteArray m_insert;
    QByteArray m_modify;
    std::optional<RowChecks> m_checks;
    bool m_hasChecks = false;
};
