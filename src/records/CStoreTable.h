#pragma once

#include "platform/sqlite/RowChecks.h"
#include "platform/sqlite/VARIANT.h"
#include "records/FieldDef.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QStringList>
#include <optional>
#include <span>
#include <vector>

class CSqliteFile;

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

    /// Each takes the values of all columns in order. False on failure: the file has noted why.
    [[nodiscard]] bool Insert(CSqliteFile& file, const std::vector<VARIANT>& values) const;
    /// Overwrites the row of a key; found tells whether there was one.
    [[nodiscard]] bool Modify(CSqliteFile& file, const QString& key, const std::vector<VARIANT>& values,
                              bool& found) const;
    /// Whether the row of a key is as it was written; true also for one without a checksum.
    [[nodiscard]] bool IsAsWritten(CSqliteFile& file, const QString& key) const;
    /// The keys of rows that aren't as they were written, and of such as are gone without having been
    /// deleted.
    [[nodiscard]] bool FindFaults(CSqliteFile& file, QStringList& keys) const;

 private:
    explicit CStoreTable(std::vector<QString> columns) : m_columns(std::move(columns)) {}
    void Compose(const QByteArray& name);
    [[nodiscard]] bool PutCheck(CSqliteFile& file, const VARIANT& key, std::int64_t sum) const;

    std::vector<QString> m_columns;
    mutable const FieldDef* m_fitting = nullptr;  ///< the columns that were found to fit: asked at each write
    QByteArray m_insert;
    QByteArray m_modify;
    std::optional<RowChecks> m_checks;
    bool m_hasChecks = false;
};
