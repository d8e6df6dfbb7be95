#pragma once

#include "cli/arguments/FieldEntry.h"

#include <span>

class CERecord;

[[nodiscard]] std::span<const OptionRow> ExpenseFieldOptions();

/// Enters the fields of an expense in this order: date, items, notes, distance entry, distance, rate,
/// odometer readings, amount, flags. Distance, rate or a reading make a distance entry, whose amount is
/// computed. The last reading is noted in the settings of the context.
[[nodiscard]] EnteredFields EnterExpenseFields(CERecord& record, const CArguments& arguments,
                                               const FieldContext& context);
