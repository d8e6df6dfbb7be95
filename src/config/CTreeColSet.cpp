#include "config/CTreeColSet.h"

#include <algorithm>

void CTreeColSet::SetDefaults() {
    FillFromTable(&ColumnRow::treePosition);
    RemoveExcluded();
}

bool CTreeColSet::LoadBlob(const QByteArray& blob) {
    if (!CColSet::LoadBlob(blob)) return false;
    RemoveExcluded();
    return true;
}

bool CTreeColSet::IsExcluded(int column) const {
    const std::span<const int> columns = ColumnsWithoutLevel();
    return std::ranges::find(columns, column) != columns.end();
}

void CTreeColSet::RemoveExcluded() {
    for (const int column : ColumnsWithoutLevel()) Hide(column);
    RebuildOrders();
}
