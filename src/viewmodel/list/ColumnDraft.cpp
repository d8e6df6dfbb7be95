#include "viewmodel/list/ColumnDraft.h"

#include "config/CColSet.h"

ChosenColumns ColumnDraftOf(const CColSet& set, ColumnHalf half) {
    ChosenColumns chosen;
    const auto entry = [&set](int column) { return ChosenColumn{column, set.EntryAt(column).caption}; };
    for (const int column : set.Order(half)) chosen.shown.push_back(entry(column));
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (!set.IsVisible(column) && !set.IsExcluded(column)) chosen.hidden.push_back(entry(column));
    chosen.breaks = set.Breaks(half);
    return chosen;
}

void PutColumnDraft(CColSet& set, ColumnHalf half, const ChosenColumns& chosen) {
    std::vector<int> shown;
    for (const ChosenColumn& column : chosen.shown) shown.push_back(column.column);
    set.ShowExactly(half, shown);
    set.SetBreaks(half, chosen.breaks);
}

void FreeWidth(CColSet& set, int column) {
    set.SetWidth(column, ColumnTable()[static_cast<std::size_t>(column)].width);
}
