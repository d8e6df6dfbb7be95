#pragma once

#include "platform/RowTable.h"
#include "platform/VARIANT.h"

#include <QString>
#include <array>
#include <cstdint>
#include <vector>

class CVOSrcMgr;

/// The rows of the last query. Stands before the first row after a query; no statement stays open longer than
/// a call of the manager or a bulk read needs.
class CVORecordset {
 public:
    explicit CVORecordset(CVOSrcMgr& manager);

    /// Sets a column of the row being written, by name. False for a name that the table lacks or a text too
    /// long for it.
    [[nodiscard]] bool SetFieldValue(const QString& name, const VARIANT& value);
    /// A value of the current row.
    [[nodiscard]] VARIANT GetFieldValue(int index) const;
    [[nodiscard]] QString GetFieldValueString(int index) const;
    /// All remaining rows; false when the query can't be read.
    [[nodiscard]] bool GetRows(RowTable& out);

    std::int32_t m_errorCode = 0;         ///< a record's own report of a bad row: -1, -2, -3
    std::array<QString, 3> m_errorTexts;  ///< and its words

 private:
    friend class CVOSrcMgr;
    CVOSrcMgr& m_manager;
    std::vector<VARIANT> m_written;  ///< the row being written, column by column
    std::size_t m_nextColumn = 0;    ///< where SetFieldValue looks first: columns are set in order
};
