#pragma once

#include "config/ColumnTable.h"
#include "viewmodel/list/ColumnChoice.h"

class CColSet;

/// The columns of a half as the user chooses among them; those that a set never shows aren't there.
[[nodiscard]] ChosenColumns ColumnDraftOf(const CColSet& set, ColumnHalf half);
/// Puts what was chosen into the set. A hidden column keeps its width.
void PutColumnDraft(CColSet& set, ColumnHalf half, const ChosenColumns& chosen);

/// A column loses the width that the user gave it.
void FreeWidth(CColSet& set, int column);
