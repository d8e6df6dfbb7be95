#pragma once

#include "fields/ExpenseFields.h"
#include "fields/TimeFields.h"

/// The number of the name that heads the list of a field; 0 for a field without one.
[[nodiscard]] constexpr int HeadingOf(FieldId id) {
    for (const FieldRow& field : kTimeFields)
        if (field.id == id) return field.heading;
    for (const FieldRow& field : kExpenseFields)
        if (field.id == id) return field.heading;
    return 0;
}
