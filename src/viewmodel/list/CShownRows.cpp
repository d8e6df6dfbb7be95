#include "viewmodel/list/CShownRows.h"

#include "fields/RecordWords.h"
#include "viewmodel/list/CRecordListModel.h"

#include <algorithm>
#include <utility>

namespace {

/// Whether what has the new words has the former ones as well: some were typed on, or more came.
bool Narrows(const QString& former, const QString& words) {
    return !former.isEmpty() && words.startsWith(former);
}

}  // namespace

CShownRows::CShownRows(CRecordListModel& list, QObject* parent) : QAbstractProxyModel(parent), m_list(list) {
    setSourceModel(&list);
    Follow();
}

void CShownRows::Follow() {
    using Model = QAbstractItemModel;
    connect(&m_list, &Model::modelAboutToBeReset, this, [this] { beginResetModel(); });
    connect(&m_list, &Model::modelReset, this, [this] {
        Fill();
        endResetModel();
    });
    connect(&m_list, &Model::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { TakeInserted(first, last); });
    connect(&m_list, &Model::rowsAboutToBeRemoved, this,
            [this](const QModelIndex&, int first, int last) { DropRemoved(first, last); });
    connect(&m_list, &Model::rowsRemoved, this,
            [this](const QModelIndex&, int first, int last) { CloseGap(first, last); });
    connect(&m_list, &Model::dataChanged, this, &CShownRows::TellChanged);
    connect(&m_list, &Model::layoutAboutToBeChanged, this, &CShownRows::RememberPlaces);
    connect(&m_list, &Model::layoutChanged, this, &CShownRows::TakeNewOrder);
    connect(&m_list, &Model::rowsAboutToBeMoved, this, &CShownRows::RememberPlaces);
    connect(&m_list, &Model::rowsMoved, this, &CShownRows::TakeNewOrder);
}

void CShownRows::Find(const QString& words) {
    const QString wanted = words.simplified();
    beginResetModel();
    const RecordWords recordWords(wanted);
    const bool isFurther = m_hasAll && Narrows(m_words, wanted);
    m_rows = isFurther ? m_list.RowsWith(recordWords, m_rows) : RowsWithWords(wanted);
    m_words = wanted;
    m_hasAll = true;
    endResetModel();
}

void CShownRows::Fill() {
    m_rows = RowsWithWords(m_words);
    m_hasAll = true;
}

std::vector<int> CShownRows::RowsWithWords(const QString& words) const {
    return words.isEmpty() ? std::vector<int>() : m_list.RowsWith(RecordWords(words));
}

int CShownRows::PlaceOf(int listRow) const {
    return static_cast<int>(std::ranges::lower_bound(m_rows, listRow) - m_rows.begin());
}

int CShownRows::ShownRowOf(int listRow) const {
    const int place = PlaceOf(listRow);
    return place < rowCount() && ListRowOf(place) == listRow ? place : -1;
}

void CShownRows::TakeInserted(int first, int last) {
    if (!IsFinding()) return;
    const int place = PlaceOf(first), count = last - first + 1;
    beginInsertRows({}, place, place + count - 1);
    for (auto row = m_rows.begin() + place; row != m_rows.end(); ++row) *row += count;
    std::vector<int> added(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) added[static_cast<std::size_t>(i)] = first + i;
    m_rows.insert(m_rows.begin() + place, added.begin(), added.end());
    endInsertRows();
}

void CShownRows::DropRemoved(int first, int last) {
    const int place = PlaceOf(first), end = PlaceOf(last + 1);
    if (place == end) return;
    beginRemoveRows({}, place, end - 1);
    m_rows.erase(m_rows.begin() + place, m_rows.begin() + end);
    endRemoveRows();
}

void CShownRows::CloseGap(int first, int last) {
    for (auto row = m_rows.begin() + PlaceOf(first); row != m_rows.end(); ++row) *row -= last - first + 1;
}

void CShownRows::TellChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
    m_hasAll = false;
    const int place = PlaceOf(first.row()), end = PlaceOf(last.row() + 1);
    if (place < end) Q_EMIT dataChanged(index(place, first.column()), index(end - 1, last.column()), roles);
}

void CShownRows::RememberPlaces() {
    if (!IsFinding()) return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    for (const int row : m_rows) m_ids.append(m_list.IdAt(row));
    m_pointedTo = persistentIndexList();
    for (const QModelIndex& place : m_pointedTo) m_listed.append(mapToSource(place));
}

/// The same records in another order.
void CShownRows::TakeNewOrder() {
    if (!IsFinding()) return;
    m_rows = m_list.RowsOf(std::exchange(m_ids, {}));
    QModelIndexList moved;
    for (const QPersistentModelIndex& listed : std::exchange(m_listed, {}))
        moved.append(mapFromSource(listed));
    changePersistentIndexList(std::exchange(m_pointedTo, {}), moved);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

QModelIndex CShownRows::mapToSource(const QModelIndex& shown) const {
    return shown.isValid() ? m_list.index(ListRowOf(shown.row()), shown.column()) : QModelIndex();
}

QModelIndex CShownRows::mapFromSource(const QModelIndex& listed) const {
    const int row = listed.isValid() ? ShownRowOf(listed.row()) : -1;
    return row < 0 ? QModelIndex() : index(row, listed.column());
}

QModelIndex CShownRows::index(int row, int column, const QModelIndex& parent) const {
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex CShownRows::parent(const QModelIndex&) const {
    return {};
}

int CShownRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int CShownRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_list.columnCount();
}

bool CShownRows::hasChildren(const QModelIndex& parent) const {
    return rowCount(parent) > 0;
}

QVariant CShownRows::headerData(int section, Qt::Orientation orientation, int role) const {
    return m_list.headerData(section, orientation, role);
}
