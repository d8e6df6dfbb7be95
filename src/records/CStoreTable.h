#pragma once

#include "platform/sqlite/VARIANT.h"
#include "records/FieldDef.h"

#include <QByteArray>
#include <QString>
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

    /// How many tables the store has.
    [[nodiscard]] static bool Count(CSqliteFile& file, int& count);

    [[nodiscard]] const std::vector<QString>& Columns() const { return m_columns; }
    [[nodiscard]] const QString& KeyColumn() const { return m_columns.back(); }
    /// Whether the columns are those of a record, in its order.
    [[nodiscard]] bool Fits(std::span<const FieldDef> fields) const;

    /// Each takes the values of all columns in order. False on failure: the file has noted why.
    [[nodiscard]] bool Insert(CSqliteFile& file, const std::vector<VARIANT>& values) const;
    /// Overwrites the row of a key; found tells whether there was one.
    [[nodiscard]] bool Modify(CSqliteFile& file, const QString& key, const std::vector<VARIANT>& values,
                              bool& found) const;
    [[nodiscard]] bool Contains(CSqliteFile& file, const QString& key, bool& found) const;

 private:
    explicit CStoreTable(std::vector<QString> columns) : m_columns(std::move(columns)) {}
    void Compose(const QByteArray& name);

    std::vector<QString> m_columns;
    mutable const FieldDef* m_fitting = nullptr;  ///< the columns that were found to fit: asked at each write
    QByteArray m_insert;
    QByteArray m_modify;
    QByteArray m_contains;
};
