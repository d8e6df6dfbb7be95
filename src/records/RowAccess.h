#pragma once

#include "platform/host/Utf8Text.h"
#include "platform/sqlite/RowTable.h"
#include "records/CVORec.h"
#include "records/CVORecordset.h"
#include "records/SharedTexts.h"

#include <QString>
#include <cstddef>
#include <cstdint>
#include <span>

/// Sets the columns of a row one after another, by the names of a record's table. After the first refusal
/// nothing more is set.
class RowWriter {
 public:
    RowWriter(CVORecordset& row, std::span<const FieldDef> fields) : m_row(row), m_fields(fields) {}
    void PutInt(std::int32_t value) { Put(value); }
    void PutFlag(bool value) { Put(std::int32_t{value}); }
    void PutFloat(float value) { Put(value); }
    void PutText(const QString& value) { Put(value); }
    [[nodiscard]] bool AllSet() const { return m_good; }

 private:
    void Put(VARIANT value);
    CVORecordset& m_row;
    std::span<const FieldDef> m_fields;
    std::size_t m_next = 0;
    bool m_good = true;
};

/// Takes the columns of the current row one after another. A flag is set by any number but 0.
class RecordsetRow {
 public:
    explicit RecordsetRow(const CVORecordset& row) : m_row(row) {}
    [[nodiscard]] int Int() { return ToInt32(m_row.GetFieldValue(m_next++)); }
    [[nodiscard]] bool Flag() { return Int() != 0; }
    [[nodiscard]] float Float() { return ToFloat(m_row.GetFieldValue(m_next++)); }
    [[nodiscard]] QString Text() { return m_row.GetFieldValueString(m_next++); }
    [[nodiscard]] QString LongText() { return Text(); }
    [[nodiscard]] QString Key() { return Text(); }

 private:
    const CVORecordset& m_row;
    int m_next = 0;
};

/// Takes the columns of a row of a bulk read one after another. Integers have 16 bits here, and a flag is set
/// by a number above 0.
class TableRow {
 public:
    TableRow(const RowTable& rows, std::size_t row) : m_rows(rows), m_row(row) {}
    /// Whether the table has such a row, and columns of a record's kinds in its order.
    [[nodiscard]] bool Fits(std::span<const FieldDef> fields) const;
    [[nodiscard]] int Int() { return m_rows.Integer(m_next++, m_row); }
    [[nodiscard]] bool Flag() { return Int() > 0; }
    [[nodiscard]] float Float() { return static_cast<float>(m_rows.Real(m_next++, m_row)); }
    [[nodiscard]] QString Text() { return SharedText(m_rows.Text(m_next++, m_row)); }
    [[nodiscard]] QString LongText() { return TextOfUtf8(m_rows.Text(m_next++, m_row)); }
    [[nodiscard]] QString Key() { return QString::fromLatin1(m_rows.Text(m_next++, m_row)); }

 private:
    const RowTable& m_rows;
    std::size_t m_row;
    int m_next = 0;
};
