#pragma once

#include "lang/Text.h"
#include "platform/sqlite/RowTable.h"

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

/// What a bulk read makes of a column.
[[nodiscard]] constexpr RowColumnType ColumnTypeOf(FieldType type) {
    switch (type) {
        case FieldType::Integer:
            return RowColumnType::Integer;
        case FieldType::Float:
            return RowColumnType::Real;
        case FieldType::Text:
        case FieldType::LongText:
            break;
    }
    return RowColumnType::Text;
}
