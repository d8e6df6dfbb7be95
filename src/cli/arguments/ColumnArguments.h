#pragma once

#include "config/ColumnTable.h"

class CArguments;
class CColSet;
struct ColumnRequest;
class QString;

/// Puts what a command line says about the columns of a half into a request for their change: the columns
/// named, by caption or number, become exactly the visible ones; widths; line breaks. The sentence that
/// refuses it, empty when it could be read.
[[nodiscard]] QString ReadColumnChange(const CArguments& arguments, const CColSet& columns, ColumnHalf half,
                                       ColumnRequest& request);
