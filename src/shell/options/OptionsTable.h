#pragma once

#include "fields/FieldId.h"
#include "viewmodel/fields/ValueChoices.h"

/// How an option is edited in the tree.
enum class OptionKind {
    Group,   ///< holds others
    Check,   ///< a flag
    Choice,  ///< one of several values, from a combo box
    Radios,  ///< a group whose leaves are its values
    Number,  ///< a whole number within the setting's bounds
};

/// One row of the tree of options.
struct OptionRow {
    int depth;  ///< 0 at the top; a row belongs to the last one above it of a smaller depth
    OptionKind kind;
    Text text;
    const char* setting;  ///< its name; null for a group
    std::span<const ValueChoice> choices;
    /// The row is called as this field of a record is, and has no text of its own.
    FieldId field = FieldId::None;
};

/// All rows from top to bottom.
[[nodiscard]] std::span<const OptionRow> OptionRows();
