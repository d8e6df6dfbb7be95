#pragma once

#include "platform/pages/RowBytes.h"
#include "records/FieldDef.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <span>
#include <vector>

class CSqliteFile;

/// How the rows of one kind of records look in the pages of a store, and how they are written into another.
/// In the pages the key comes first.
class SalvageTable {
 public:
    SalvageTable(RecordKind kind, const QString& name, std::span<const FieldDef> fields);

    [[nodiscard]] RecordKind Kind() const { return m_kind; }
    [[nodiscard]] const QByteArray& Name() const { return m_name; }
    /// Whether a row has these columns, values of their types, and an identity.
    [[nodiscard]] bool Fits(const RawRow& row) const;
    /// The checksum as the store keeps it. The row fits.
    [[nodiscard]] std::int64_t SumOf(const RawRow& row) const;
    /// In place of one with the same identity, if there is one. The row fits; a transaction is open.
    [[nodiscard]] bool Write(CSqliteFile& file, const RawRow& row) const;
    /// Once all rows are written: their checksums.
    [[nodiscard]] bool Finish(CSqliteFile& file) const;
    /// Of a row that fits.
    [[nodiscard]] static const QByteArray& IdOf(const RawRow& row);

 private:
    RecordKind m_kind;
    QByteArray m_name;
    std::vector<FieldType> m_types;  ///< as in the pages
    QByteArrayList m_columns;        ///< as in the table
    QByteArray m_insert;
};
