#pragma once

#include "platform/sqlite/RowTable.h"
#include "records/CVOId.h"
#include "records/FieldDef.h"

#include <QByteArray>
#include <memory>
#include <span>

class CVORecordset;

/// Base of every record class: an identity and the ways between an object, a row of its table and a block of
/// bytes.
class CVORec : public CVOId {
 public:
    [[nodiscard]] virtual RecordKind Kind() const = 0;
    [[nodiscard]] virtual std::span<const FieldDef> GetFieldDefs() const = 0;
    [[nodiscard]] int GetFieldCount() const { return static_cast<int>(GetFieldDefs().size()); }
    /// Sets every column of the current row by name; false at the first refusal.
    [[nodiscard]] virtual bool WriteFields(CVORecordset& row) const = 0;
    /// Fills the object from one row of a bulk read. The base has no such form.
    [[nodiscard]] virtual bool Load(const RowTable& rows, std::size_t row);
    /// Fills the object from the current row, column by index.
    [[nodiscard]] virtual bool ReadFields(CVORecordset& row) = 0;
    /// The record as tagged bytes, without the identity.
    [[nodiscard]] virtual QByteArray ToBytes() const = 0;
    [[nodiscard]] virtual bool FromBytes(const QByteArray& bytes, bool ansi) = 0;
    /// A new object of the same class with the same content.
    [[nodiscard]] virtual std::unique_ptr<CVORec> Clone() const = 0;
};
