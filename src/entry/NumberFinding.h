#pragma once

#include "entry/DraftFinding.h"

#include <optional>

/// What is to be said of a text typed into a field for a number: that it is no number, or that it is kept as
/// another one. kept: what the field shows once it is kept, in so many decimal places; empty for nothing.
/// Nothing for an empty text and for a number that is kept as it was typed.
[[nodiscard]] std::optional<DraftFinding> FindInNumber(DraftField field, const QString& typed,
                                                       const QString& kept, int precision);
/// The same of a text that is only asked to be a number.
[[nodiscard]] std::optional<DraftFinding> FindUnreadable(DraftField field, const QString& typed);
