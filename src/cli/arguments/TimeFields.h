#pragma once

#include "cli/arguments/RecordFields.h"

class CTRecord;

[[nodiscard]] std::span<const OptionRow> TimeFieldOptions();

/// Enters the fields of a time record in this order: date, items, notes, billable, start, end, duration,
/// break, rate, amount, billed.
[[nodiscard]] FieldProblem EnterTimeFields(CTRecord& record, const CArguments& arguments,
                                           const FieldContext& context);
