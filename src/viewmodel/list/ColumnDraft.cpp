#include "viewmodel/list/ColumnDraft.h"

#include "config/CColSet.h"

ChosenColumns ColumnDraftOf(const CColSet& set, ColumnHalf half) {
    ChosenColumns chosen;
    for (const int column : set.Order(half)) chosen.shown << set.EntryAt(column).caption;
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (!set.IsVisible(column) && !set.IsExcluded(column)) chosen.hidden << set.EntryAt(column).caption;
    chosen.breaks = set.Breaks(half);
    return chosen;
}

void PutColumnDraft(CColSet& set, ColumnHalf half, const ChosenColumns& chosen) {
    set.AssignOrder(half, chosen.hidden, chosen.shown);
    set.SetBreaks(half, chosen.breaks);
}
