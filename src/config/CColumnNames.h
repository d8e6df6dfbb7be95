#pragma once

#include <QString>

/// What the fields of records are called: the captions of columns follow it. Implemented above, by the class
/// that knows the user's own names.
class CColumnNames {
 public:
    virtual ~CColumnNames() = default;
    /// The name of a field by its number (109 to 148); empty when it has none.
    [[nodiscard]] virtual QString ColumnName(int field) const = 0;
};
