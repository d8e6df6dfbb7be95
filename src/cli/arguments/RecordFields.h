#pragma once

#include "cli/arguments/FieldEntry.h"
#include "records/CVORec.h"

#include <memory>
#include <span>

/// The fields of a kind of records as options.
[[nodiscard]] std::span<const OptionRow> FieldOptions(RecordKind kind);
/// A new record of a kind (time or expense), dated today.
[[nodiscard]] std::unique_ptr<CVORec> RecordOfToday(RecordKind kind, const CClock& clock);

/// Enters all given fields, and clears those named by --clear, through the rules of entry of the record's
/// kind, in a fixed order, whatever their order on the command line.
[[nodiscard]] EnteredFields EnterFields(CVORec& record, const CArguments& arguments,
                                        const FieldContext& context);
