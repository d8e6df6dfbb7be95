#pragma once

#include "records/CVORec.h"

/// An empty record of a kind.
[[nodiscard]] std::unique_ptr<CVORec> NewRecord(RecordKind kind);
/// The columns of a kind, where no record is at hand.
[[nodiscard]] std::span<const FieldDef> FieldDefsOf(RecordKind kind);
