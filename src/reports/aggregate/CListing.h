#pragma once

#include "fields/FieldId.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

class CFieldCatalogue;
class CVORec;
struct FieldRow;
struct SortKey;
enum class RecordKind : int;

/// A column of a listing.
struct ListingColumn {
    FieldId field = FieldId::None;
    QString caption{};
    const FieldRow* row = nullptr;  ///< null: records of this kind have no such field
};

/// What a listing shows of each record. The rows are asked for one by one: a lifetime of them never lies in
/// memory.
class CListing {
 public:
    CListing(RecordKind kind, const QList<SortKey>& fields, const CFieldCatalogue& catalogue);

    [[nodiscard]] const std::vector<ListingColumn>& Columns() const { return m_columns; }
    /// The texts of a record's row: what each field shows as text; of a field without one its number with up
    /// to six significant digits; else nothing.
    void ReadCells(const CVORec& record, QStringList& cells) const;

 private:
    std::vector<ListingColumn> m_columns;
};

/// The rows of a listing in their order, as often as wanted.
class CListingRows {
 public:
    /// False ends the walk.
    using Visit = std::function<bool(const QStringList& cells)>;
    virtual ~CListingRows() = default;
    /// False when the rows can't be read, or the walk was ended.
    [[nodiscard]] virtual bool ForEachRow(const Visit& visit) = 0;
};
