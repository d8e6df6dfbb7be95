// The order of the rows: which column sorts, and how rows find their places.

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "config/ColumnTable.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/CRowSorter.h"

#include <algorithm>
#include <cstdint>

namespace {

/// What the settings keep of the order of a kind of records.
struct SortSettings {
    std::int32_t& column;
    bool& ascending;
};

SortSettings SortOf(CCfgStore& settings) {
    if (theRecordMode == RecordMode::Time) return {settings.sortColumnTime, settings.sortAscendingTime};
    return {settings.sortColumnExpense, settings.sortAscendingExpense};
}

}  // namespace

bool CRecordListModel::SortsAscending() const {
    return SortOf(m_settings).ascending;
}

/// A stored column that isn't a visible one of the mode's records gives way to the first visible one, also in
/// the settings; the direction stays.
void CRecordListModel::TakeSortFromSettings() {
    std::int32_t& stored = SortOf(m_settings).column;
    const bool visible = std::find(m_columns.begin(), m_columns.end(), stored) != m_columns.end();
    m_sortColumn = visible ? stored : m_columns.empty() ? Column::kNone : m_columns.front();
    if (m_sortColumn != Column::kNone) stored = m_sortColumn;
}

void CRecordListModel::Fill() {
    m_rows = std::vector<Row>();  // a list of ten shouldn't keep the room of a million
    m_rows.reserve(m_document.VisibleCount());
    m_edition = m_document.PlacesEdition();
    for (std::size_t place = 0; place < m_document.VisiblePlaces(); ++place)
        if (const CVORec* record = m_document.VisibleAt(place)) m_rows.push_back({record->GetId(), place});
    SortRows();
}

void CRecordListModel::SortByHeader(int headerPosition) {
    if (headerPosition < 1 || headerPosition > static_cast<int>(m_columns.size())) return;
    const int column = m_columns[static_cast<std::size_t>(headerPosition - 1)];
    const SortSettings stored = SortOf(m_settings);
    stored.ascending = column == m_sortColumn ? !stored.ascending : true;
    stored.column = m_sortColumn = column;
    Sort();
}

int CRecordListModel::Compare(const RowKey& a, const RowKey& b) const {
    return CompareRows(CompareFormOf(m_sortColumn), a, b, SortsAscending());
}

RowKey CRecordListModel::KeyOf(const QString& id) const {
    const CVORec* record = m_document.FindRecord(id);
    return record ? MakeRowKey(*record, m_sortColumn, TheRegion()) : RowKey();
}

CRecordListModel::Row CRecordListModel::RowOf(const QString& id) const {
    return {id, m_document.VisiblePlaceOf(id)};
}

std::size_t CRecordListModel::PlaceOf(const Row& row) const {
    return m_edition == m_document.PlacesEdition() ? row.place : m_document.VisiblePlaceOf(row.id);
}

const CVORec* CRecordListModel::VisibleAt(int row) const {
    return m_document.VisibleAt(PlaceOf(m_rows[static_cast<std::size_t>(row)]));
}

/// In the order of the records: a walk through a million of them as they lie in memory takes a tenth of the
/// time that the order of the rows would.
void CRecordListModel::PutRows(CRowSorter& sorter) const {
    constexpr std::uint32_t kNoRow = 0xFFFFFFFF;
    std::vector<std::uint32_t> rows(m_document.VisiblePlaces(), kNoRow);
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const std::size_t place = PlaceOf(m_rows[row]);
        if (place < rows.size()) rows[place] = static_cast<std::uint32_t>(row);
    }
    for (std::size_t place = 0; place < rows.size(); ++place)
        if (const CVORec* record = m_document.VisibleAt(place); record && rows[place] != kNoRow)
            sorter.Put(rows[place], *record);
}

/// Gives the former row of each row; nothing when all stay where they are.
std::vector<std::uint32_t> CRecordListModel::SortRows() {
    m_inOrder = true;
    if (m_sortColumn == Column::kNone) return {};
    CRowSorter sorter(m_sortColumn, TheRegion(), m_rows.size());
    PutRows(sorter);
    std::vector<std::uint32_t> formerRows = sorter.Sorted(SortsAscending());
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    for (const std::uint32_t row : formerRows) sorted.push_back(std::move(m_rows[row]));
    m_rows = std::move(sorted);
    return formerRows;
}

/// Sorts and takes selection and current row along.
void CRecordListModel::Sort() {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const std::vector<std::uint32_t> formerRows = SortRows();
    std::vector<int> rows(m_rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        rows[formerRows.empty() ? row : formerRows[row]] = static_cast<int>(row);
    QModelIndexList after;
    for (const QModelIndex& former : before)
        after.append(index(rows[static_cast<std::size_t>(former.row())], former.column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

/// Where a row belongs among rows in order: behind all that don't go after it.
int CRecordListModel::PlaceFor(const RowKey& key) const {
    std::size_t low = 0, high = m_rows.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (Compare(key, KeyOf(m_rows[middle].id)) < 0)
            high = middle;
        else
            low = middle + 1;
    }
    return static_cast<int>(low);
}

void CRecordListModel::InsertSorted(const QString& id) {
    MakeRoom(1);
    const int place = m_sortColumn == Column::kNone ? rowCount() : PlaceFor(KeyOf(id));
    beginInsertRows({}, place, place);
    m_rows.insert(m_rows.begin() + place, RowOf(id));
    endInsertRows();
}

/// Both ways of asking agree: where the comparison contradicts itself (two equal durations), a row stays.
bool CRecordListModel::BelongsBefore(const RowKey& a, const RowKey& b) const {
    return Compare(a, b) < 0 && Compare(b, a) > 0;
}

/// A changed row stays where it is while its neighbours agree; otherwise it moves to its place.
void CRecordListModel::MoveToPlace(int row) {
    if (m_sortColumn == Column::kNone) return;
    const Row moved = m_rows[static_cast<std::size_t>(row)];
    const RowKey key = KeyOf(moved.id);
    const bool fitsBehind = row == 0 || !BelongsBefore(key, KeyOf(IdAt(row - 1)));
    const bool fitsBefore = row == rowCount() - 1 || !BelongsBefore(KeyOf(IdAt(row + 1)), key);
    if (fitsBehind && fitsBefore) return;
    m_rows.erase(m_rows.begin() + row);
    const int place = PlaceFor(key);
    m_rows.insert(m_rows.begin() + row, moved);
    const int target = place > row ? place + 1 : place;
    if (place == row || !beginMoveRows({}, row, row, {}, target)) return;
    m_rows.erase(m_rows.begin() + row);
    m_rows.insert(m_rows.begin() + place, moved);
    endMoveRows();
}
