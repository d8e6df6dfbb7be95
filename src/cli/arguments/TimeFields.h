#pragma once

#include "cli/arguments/FieldEntry.h"

#include <span>

class CTRecord;

[[nodiscard]] std::span<const OptionRow> TimeFieldOptions();

/// Enters the fields of a time record in this order: date, items, notes, billable, start, end, duration,
/// break, rate, amount, billed.
[[nodiscard]] EnteredFields EnterTimeFields(CTRecord& record, const CArguments& arguments,
                                            const FieldContext& context);
