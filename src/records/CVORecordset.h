#pragma once

#include "platform/sqlite/RowTable.h"
#include "platform/sqlite/VARIANT.h"
#include "records/QueryCursor.h"

#include <QString>
#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

class CVORec;
struct FieldDef;

/// What is wrong with a row, or with a record that is to become one.
namespace RowError {
inline constexpr std::int32_t kBadEncoding = -1;
inline constexpr std::int32_t kBadDigest = -2;
inline constexpr std::int32_t kTooLong = -3;
inline constexpr std::int32_t kNoIdentity = 19;  ///< as the store itself reports a value that can't be
}  // namespace RowError

/// The rows of the last query and the row being written. Stands before the first row after a query: that one
/// is current.
class CVORecordset {
 public:
    /// Makes the row to be written from a record. False for a record that no table can take: one without a
    /// proper identity, or with a text too long for its column; m_errorCode and Words say which.
    [[nodiscard]] bool TakeRecord(const CVORec& record);
    /// Sets a column of the row being written, by name. False for a name that the record lacks or a text too
    /// long for it.
    [[nodiscard]] bool SetFieldValue(const QString& name, VARIANT value);
    /// A value of the current row.
    [[nodiscard]] VARIANT GetFieldValue(int index) const { return m_cursor.Value(index); }
    [[nodiscard]] QString GetFieldValueString(int index) const { return ToText(m_cursor.Value(index)); }
    /// The remaining rows, so many at most; false when the query can't be read.
    [[nodiscard]] bool GetRows(RowTable& out, std::size_t most = std::numeric_limits<std::size_t>::max(),
                               Ahead ahead = Ahead::No);

    std::int32_t m_errorCode = 0;         ///< a record's own report of a bad row, see RowError
    std::array<QString, 3> m_errorTexts;  ///< and its words
    /// The same as one sentence.
    [[nodiscard]] QString Words() const;

 private:
    friend class CVOSrcMgr;
    [[nodiscard]] bool IsTooLong(std::size_t column, const VARIANT& value);

    QueryCursor m_cursor;
    std::span<const FieldDef> m_fields;  ///< the columns of the row being written, none without one
    std::vector<VARIANT> m_written;      ///< its values, column by column
    std::size_t m_nextColumn = 0;        ///< where SetFieldValue looks first: columns are set in order
};
