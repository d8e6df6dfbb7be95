#include "viewmodel/list/CGroupedRows.h"

#include "config/Settings.h"
#include "lang/FormatText.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/CShownRows.h"
#include "viewmodel/list/GroupTitle.h"
#include "viewmodel/list/StatusSums.h"
#include "viewmodel/list/TotalsText.h"

#include <algorithm>
#include <utility>

namespace {

/// New rows of so many days are taken in one by one; for more all are parted anew.
constexpr int kFewDays = 64;

}  // namespace

CGroupedRows::CGroupedRows(CRecordListModel& list, CShownRows& found, const Settings& settings,
                           QObject* parent)
    : QAbstractProxyModel(parent), m_list(list), m_found(found), m_settings(settings) {
    m_ofList.Part({}, 0, {});
    m_ofFound.Part({}, 0, {});
}

void CGroupedRows::Begin(bool areFound) {
    QAbstractItemModel& source = areFound ? static_cast<QAbstractItemModel&>(m_found) : m_list;
    if (sourceModel() == &source) return;
    beginResetModel();
    m_areFound = areFound;
    m_groups = areFound ? &m_ofFound : &m_ofList;
    if (areFound) m_ofFound.SetAllFolded(false);
    Follow(source);
    Part();
    endResetModel();
}

void CGroupedRows::End() {
    if (!sourceModel()) return;
    beginResetModel();
    for (const QMetaObject::Connection& following : m_following) disconnect(following);
    setSourceModel(nullptr);
    m_groups->Part({}, 0, {});
    m_areFound = false;
    endResetModel();
}

void CGroupedRows::Follow(QAbstractItemModel& source) {
    using Model = QAbstractItemModel;
    for (const QMetaObject::Connection& following : m_following) disconnect(following);
    setSourceModel(&source);
    m_following = {connect(&source, &Model::modelAboutToBeReset, this, [this] { beginResetModel(); }),
                   connect(&source, &Model::modelReset, this,
                           [this] {
                               Part();
                               endResetModel();
                           }),
                   connect(&source, &Model::rowsInserted, this,
                           [this](const QModelIndex&, int first, int last) { TakeInserted(first, last); }),
                   connect(&source, &Model::rowsAboutToBeRemoved, this,
                           [this](const QModelIndex&, int first, int last) { DropRemoved(first, last); }),
                   connect(&source, &Model::rowsRemoved, this, &CGroupedRows::CloseGap),
                   connect(&source, &Model::dataChanged, this, &CGroupedRows::TellChanged),
                   connect(&source, &Model::layoutAboutToBeChanged, this, &CGroupedRows::BeginParting),
                   connect(&source, &Model::layoutChanged, this, &CGroupedRows::EndParting),
                   connect(&source, &Model::rowsAboutToBeMoved, this, &CGroupedRows::BeginParting),
                   connect(&source, &Model::rowsMoved, this, &CGroupedRows::EndParting)};
}

/// A list that isn't sorted by date any more has no groups until it is shown without them.
void CGroupedRows::Part() {
    m_words.clear();
    const ListGroups by = ListGroupsOf(m_settings.listGroups);
    if (std::exchange(m_by, by) != by)
        for (CRowGroups* groups : {&m_ofList, &m_ofFound}) groups->SetAllFolded(false);
    const bool isGrouped = m_list.IsSortedByDate();
    m_groups->Part({.groups = isGrouped ? m_by : ListGroups::None,
                    .firstDayOfWeek = m_settings.firstDayOfWeek,
                    .isAscending = isGrouped && m_list.SortsAscending(),
                    .today = isGrouped && !m_areFound && m_list.IsTodayShown() ? m_list.Today() : 0},
                   sourceModel() ? sourceModel()->rowCount() : 0, [this](int row) { return DayAt(row); });
}

// --- What the rows below do

/// Rows that come in one day stand together; those of many days, as an import brings them, part all anew.
void CGroupedRows::TakeInserted(int first, int last) {
    m_groups->OpenGap(first, last - first + 1);
    if (AreManyDays(first, last)) {
        BeginParting();
        return EndParting();
    }
    for (int row = first; row <= last;) {
        const int end = EndOfDay(row, last);
        const std::uint32_t day = DayAt(row);
        const auto places = m_groups->PlacesToTake(end - row, day);
        if (!places) {
            BeginParting();
            return EndParting();
        }
        if (places->count > 0) beginInsertRows({}, places->first, places->first + places->count - 1);
        m_groups->Take(end - row, day);
        if (places->count > 0) endInsertRows();
        TellHead(m_groups->GroupOfRow(row));
        row = end;
    }
}

/// Behind the rows of the same day.
int CGroupedRows::EndOfDay(int first, int last) const {
    int end = first + 1;
    while (end <= last && DayAt(end) == DayAt(first)) ++end;
    return end;
}

bool CGroupedRows::AreManyDays(int first, int last) const {
    int days = 0;
    for (int row = first; row <= last && days <= kFewDays; row = EndOfDay(row, last)) ++days;
    return days > kFewDays;
}

void CGroupedRows::DropRemoved(int first, int last) {
    const int count = last - first + 1;
    const auto places = m_groups->PlacesToDrop(first, count);
    if (!places) return BeginParting();
    if (places->count > 0) beginRemoveRows({}, places->first, places->first + places->count - 1);
    m_groups->Drop(first, count);
    if (places->count > 0) endRemoveRows();
}

/// The source has its new rows by now.
void CGroupedRows::CloseGap() {
    if (m_isParting) return EndParting();
    const int row = m_groups->Gap().first;
    m_groups->CloseGap();
    for (const int touched : {row - 1, row}) TellHead(m_groups->GroupOfRow(touched));
    if (const int today = HeadOfDay(m_groups->Today()); today >= 0) TellHead(m_groups->GroupAt(today));
}

/// With roles it is a count of a timer, which changes no sum.
void CGroupedRows::TellChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
    if (roles.isEmpty() && !AreInTheirGroup(first.row(), last.row())) {
        BeginParting();
        return EndParting();
    }
    for (int row = first.row(); row <= last.row(); ++row) {
        const int place = RowOf(row);
        if (place >= 0) Q_EMIT dataChanged(index(place, first.column()), index(place, last.column()), roles);
        if (roles.isEmpty()) TellHead(m_groups->GroupOfRow(row));
    }
}

bool CGroupedRows::AreInTheirGroup(int first, int last) const {
    if (!m_groups->HasHeads()) return true;
    for (int row = first; row <= last; ++row) {
        const int group = m_groups->GroupOfRow(row);
        if (group < 0) return false;
        if (m_groups->FirstDayOf(DayAt(row)) != m_groups->Groups()[static_cast<std::size_t>(group)].firstDay)
            return false;
    }
    return true;
}

void CGroupedRows::TellHead(int group) {
    if (group < 0) return;
    const CRowGroups::Group& changed = m_groups->Groups()[static_cast<std::size_t>(group)];
    m_words.remove(changed.number);
    Q_EMIT dataChanged(index(changed.head, 0), index(changed.head, columnCount() - 1));
}

void CGroupedRows::BeginParting() {
    m_isParting = true;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    m_pointedTo = persistentIndexList();
    for (const QModelIndex& place : m_pointedTo)
        m_pointed.push_back(
            {.record = mapToSource(place),
             .firstDay = IsHead(place.row()) ? std::optional(FirstDayOf(place.row())) : std::nullopt,
             .column = place.column()});
}

/// The same records below other heads. Who points to a record of a group that is folded has nothing any more.
void CGroupedRows::EndParting() {
    m_isParting = false;
    Part();
    QModelIndexList moved;
    QHash<std::uint32_t, int> heads;  // thousands may be pointed to
    for (const CRowGroups::Group& group : m_groups->Groups()) heads.insert(group.firstDay, group.head);
    for (const Pointed& pointed : std::exchange(m_pointed, {})) {
        const int head = pointed.firstDay ? heads.value(*pointed.firstDay, -1) : -1;
        moved.append(head >= 0 ? index(head, pointed.column) : mapFromSource(pointed.record));
    }
    changePersistentIndexList(std::exchange(m_pointedTo, {}), moved);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

// --- Heads

int CGroupedRows::HeadOf(int row) const {
    const int group = m_groups->GroupAt(row);
    return group < 0 ? -1 : m_groups->Groups()[static_cast<std::size_t>(group)].head;
}

int CGroupedRows::HeadOfSource(int sourceRow) const {
    const int group = m_groups->HasHeads() ? m_groups->GroupOfRow(sourceRow) : -1;
    return group < 0 ? -1 : m_groups->Groups()[static_cast<std::size_t>(group)].head;
}

int CGroupedRows::HeadOfDay(std::uint32_t firstDay) const {
    for (const CRowGroups::Group& group : m_groups->Groups())
        if (group.firstDay == firstDay) return group.head;
    return -1;
}

std::uint32_t CGroupedRows::FirstDayOf(int headRow) const {
    return m_groups->Groups()[static_cast<std::size_t>(m_groups->GroupAt(headRow))].firstDay;
}

std::vector<int> CGroupedRows::Heads() const {
    std::vector<int> heads;
    heads.reserve(m_groups->Groups().size());
    for (const CRowGroups::Group& group : m_groups->Groups()) heads.push_back(group.head);
    return heads;
}

GroupHead CGroupedRows::HeadAt(int headRow) const {
    const CRowGroups::Group& group = m_groups->Groups()[static_cast<std::size_t>(m_groups->GroupAt(headRow))];
    const Words& words = WordsOf(group);
    return {.title = words.title,
            .count = words.count,
            .hours = words.hours,
            .money = words.money,
            .isFolded = group.isFolded};
}

const CGroupedRows::Words& CGroupedRows::WordsOf(const CRowGroups::Group& group) const {
    const auto known = m_words.constFind(group.number);
    if (known != m_words.cend()) return *known;
    StatusSums sums;
    for (int row = group.firstRow; row < group.firstRow + group.rows; ++row)
        if (const CVORec* record = m_list.VisibleAt(ListRowOf(row))) sums.Add(*record);
    const QString count = TotalsCount(sums);
    return *m_words.insert(group.number,
                           {.title = GroupTitle(group.firstDay, m_by, m_list.Today(), m_settings),
                            .count = count.isEmpty() ? LoadText(Text::HeadNoRecords) : count,
                            .hours = HoursTotals(sums, m_settings),
                            .money = MoneyTotals(sums, m_settings)});
}

void CGroupedRows::SetFolded(int headRow, bool isFolded) {
    const int group = m_groups->GroupAt(headRow);
    if (group < 0 || m_groups->Groups()[static_cast<std::size_t>(group)].isFolded == isFolded) return;
    const auto [first, count] = m_groups->InsideOf(group);
    if (count > 0 && isFolded) beginRemoveRows({}, first, first + count - 1);
    if (count > 0 && !isFolded) beginInsertRows({}, first, first + count - 1);
    m_groups->SetFolded(group, isFolded);
    if (count > 0 && isFolded) endRemoveRows();
    if (count > 0 && !isFolded) endInsertRows();
    Q_EMIT dataChanged(index(headRow, 0), index(headRow, columnCount() - 1));
}

void CGroupedRows::SetAllFolded(bool isFolded) {
    BeginParting();
    m_groups->SetAllFolded(isFolded);
    EndParting();
}

bool CGroupedRows::AreAllFolded() const {
    return !m_groups->Groups().empty() &&
           std::ranges::all_of(m_groups->Groups(), &CRowGroups::Group::isFolded);
}

bool CGroupedRows::IsAnyFolded() const {
    return std::ranges::any_of(m_groups->Groups(), &CRowGroups::Group::isFolded);
}

void CGroupedRows::Show(const std::vector<int>& sourceRows) {
    for (const int row : sourceRows)
        if (const int head = HeadOfSource(row); head >= 0) SetFolded(head, false);
}

int CGroupedRows::ListRowOf(int sourceRow) const {
    return m_areFound ? m_found.ListRowOf(sourceRow) : sourceRow;
}

std::uint32_t CGroupedRows::DayAt(int sourceRow) const {
    return m_list.DayAt(ListRowOf(sourceRow));
}

// --- The model

QModelIndex CGroupedRows::mapToSource(const QModelIndex& shown) const {
    if (!shown.isValid() || !sourceModel()) return {};
    const int row = SourceRowOf(shown.row());
    return row < 0 ? QModelIndex() : sourceModel()->index(row, shown.column());
}

QModelIndex CGroupedRows::mapFromSource(const QModelIndex& listed) const {
    const int row = listed.isValid() ? RowOf(listed.row()) : -1;
    return row < 0 ? QModelIndex() : index(row, listed.column());
}

QModelIndex CGroupedRows::index(int row, int column, const QModelIndex& parent) const {
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex CGroupedRows::parent(const QModelIndex&) const {
    return {};
}

int CGroupedRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_groups->Count();
}

int CGroupedRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_list.columnCount();
}

bool CGroupedRows::hasChildren(const QModelIndex& parent) const {
    return rowCount(parent) > 0;
}

Qt::ItemFlags CGroupedRows::flags(const QModelIndex& index) const {
    const bool isHead = index.isValid() && IsHead(index.row());
    return isHead ? Qt::ItemIsEnabled | Qt::ItemNeverHasChildren : QAbstractProxyModel::flags(index);
}

QVariant CGroupedRows::headerData(int section, Qt::Orientation orientation, int role) const {
    return m_list.headerData(section, orientation, role);
}

QVariant CGroupedRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int row = SourceRowOf(index.row());
    if (role == CRecordListModel::OrderRole) return row;
    return row < 0 ? HeadData(index, role) : QAbstractProxyModel::data(index, role);
}

/// A user who goes from row to row by the keyboard hears the first cell of each.
QVariant CGroupedRows::HeadData(const QModelIndex& index, int role) const {
    if (index.column() != 0) return {};
    if (role == Qt::DisplayRole) return HeadAt(index.row()).title;
    if (role == Qt::AccessibleTextRole) return HeadInWords(index.row());
    if (role == Qt::ToolTipRole) return FormatText<Text::HeadTip>(HeadInWords(index.row()));
    return {};
}

QString CGroupedRows::HeadInWords(int row) const {
    const GroupHead head = HeadAt(row);
    QStringList words{head.title, head.count, head.hours, head.money,
                      LoadText(head.isFolded ? Text::HeadFolded : Text::HeadUnfolded)};
    words.removeAll(QString());
    return words.join(QStringLiteral(", "));
}
