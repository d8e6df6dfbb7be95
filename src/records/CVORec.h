#pragma once

#include "lang/Text.h"
#include "platform/sqlite/RowTable.h"
#include "records/CVOId.h"

#include <QByteArray>
#include <memory>
#include <span>

class CVORecordset;

/// Which table a record lies in.
enum class RecordKind : int { Time = 0, Expense = 1, PulldownItem = 4, Dependency = 6 };

/// What a column holds.
enum class FieldType : int { Text = 0, Integer = 1, LongText = 2, Float = 3 };

/// The flag of the identity column, the table's key.
inline constexpr int kKeyFlag = 256;

/// Greatest number of characters (UTF-16 units) of the columns of texts.
inline constexpr int kTextLength = 255;
inline constexpr int kLongTextLength = 32000;
inline constexpr int kIdentityLength = 32;

/// One column of a record's table. The order of rows is the order of columns; the identity is always the
/// last.
struct FieldDef {
    Text nameId;  ///< number of the column's name
    FieldType type;
    int length;  ///< greatest number of characters of a text, 1 otherwise
    int flags;   ///< kKeyFlag or 0

    [[nodiscard]] static constexpr FieldDef Int(Text name) { return {name, FieldType::Integer, 1, 0}; }
    [[nodiscard]] static constexpr FieldDef Real(Text name) { return {name, FieldType::Float, 1, 0}; }
    [[nodiscard]] static constexpr FieldDef Str(Text name) { return {name, FieldType::Text, kTextLength, 0}; }
    [[nodiscard]] static constexpr FieldDef Long(Text name) {
        return {name, FieldType::LongText, kLongTextLength, 0};
    }
    [[nodiscard]] static constexpr FieldDef Key(Text name) {
        return {name, FieldType::Text, kIdentityLength, kKeyFlag};
    }
};

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
    [[nodiscard]] virtual bool ToBytes(QByteArray& out) const = 0;
    [[nodiscard]] virtual bool FromBytes(const QByteArray& bytes, bool ansi) = 0;
    /// A new object of the same class with the same content.
    [[nodiscard]] virtual std::unique_ptr<CVORec> Clone() const = 0;
};

/// What a bulk read makes of a column.
[[nodiscard]] RowColumnType ColumnTypeOf(FieldType type);
/// The columns of a kind, for whoever has no record at hand.
[[nodiscard]] std::span<const FieldDef> FieldDefsOf(RecordKind kind);
/// An empty record of a kind.
[[nodiscard]] std::unique_ptr<CVORec> NewRecord(RecordKind kind);
