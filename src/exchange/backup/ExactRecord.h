#pragma once

#include "records/CVORec.h"

#include <memory>

/// An empty record that takes amounts and rates as they are stored or written: one that follows the settings
/// would round them to as many places as the user wants to see now.
[[nodiscard]] std::unique_ptr<CVORec> NewExactRecord(RecordKind kind, bool isPacked = false);
