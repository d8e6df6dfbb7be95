#pragma once

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"
#include "viewmodel/tree/TreePath.h"

#include <variant>

class CVelmarchDoc;

/// The filter of one mode.
using NodeFilter = std::variant<TimeFilter, ExpenseFilter>;

/// A copy of the document's filter of the mode in force.
[[nodiscard]] NodeFilter FilterInForce(const CVelmarchDoc& document);
/// Makes it the document's filter of its mode; the visible records stay as they are.
void PutInForce(const NodeFilter& filter, CVelmarchDoc& document);
/// What selecting the node at the end of a path makes of a filter: the period stays, the conditions are those
/// of the path alone, and texts have to be exactly the node's.
[[nodiscard]] NodeFilter NarrowedTo(const TreePath& path, NodeFilter filter);
/// Whether a filter lets through what the root stands for: all records of the period.
[[nodiscard]] bool IsOfRoot(NodeFilter filter);
