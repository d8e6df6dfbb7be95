#include "viewmodel/list/CRecordListModel.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "config/ColumnTable.h"
#include "fields/FieldTable.h"
#include "fields/RecordWords.h"
#include "lang/FormatText.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRowSorter.h"
#include "viewmodel/list/CellText.h"
#include "viewmodel/list/DayOrder.h"

#include <QSet>
#include <algorithm>
#include <cstdint>

namespace {

/// Up to so many changed records find their places one by one; for more the whole list is sorted.
constexpr qsizetype kFewRows = 64;

RowImage TimerImage(TimerState state) {
    return state == TimerState::Running  ? RowImage::TimerRunning
           : state == TimerState::Paused ? RowImage::TimerPaused
                                         : RowImage::Plain;
}

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

CRecordListModel::CRecordListModel(const CVelmarchDoc& document, const ActiveTimerSet& timers,
                                   CCfgStore& settings, QObject* parent)
    : QAbstractTableModel(parent),
      m_document(document),
      m_timers(timers),
      m_settings(settings),
      m_sortColumn(Column::kNone) {}

void CRecordListModel::Rebuild() {
    beginResetModel();
    const int layout = m_settings.listLayout;
    m_layout = layout >= 1 && layout <= 4 ? static_cast<ListLayout>(layout) : ListLayout::Lines;
    m_settings.listLayout = static_cast<std::int32_t>(m_layout);
    m_columns = m_settings.ListColumns().Order(HalfOf(KindOf(theRecordMode)));
    TakeSortFromSettings();
    Fill();
    endResetModel();
}

void CRecordListModel::OnHint(Hint hint, const QStringList& ids) {
    switch (hint) {
        case Hint::Added:
            return AddRows(ids);
        case Hint::Changed:
            return ChangeRows(ids);
        case Hint::AboutToGo:
            return RemoveRows(ids);
        case Hint::TimerStarted:
        case Hint::TimerPaused:
        case Hint::TimerStopped:
            return TouchRows(RowsOf(ids));
        case Hint::Rebuild:
            return Rebuild();
        case Hint::Clear:
            beginResetModel();
            m_rows = std::vector<Row>();
            endResetModel();
            return;
        default:
            return;
    }
}

const CVORec* CRecordListModel::RecordAt(int row) const {
    return m_document.FindRecord(IdAt(row));
}

QString CRecordListModel::TextOf(int row, int column) const {
    const CVORec* record = RecordAt(row);
    return record ? CellText(*record, column, m_settings, m_timers) : QString();
}

bool CRecordListModel::IsFlagSet(int row, int column) const {
    const CVORec* record = RecordAt(row);
    return record && FlagOf(*record, column);
}

QString CRecordListModel::NoteOf(int row, int column) const {
    const CVORec* record = RecordAt(row);
    return record ? CellNote(*record, column, m_timers) : QString();
}

QString CRecordListModel::FlagInWordsOf(int row, int column) const {
    const CVORec* record = RecordAt(row);
    return record ? FlagInWords(*record, column, m_settings) : QString();
}

QStringList CRecordListModel::AllIds() const {
    QStringList ids;
    ids.reserve(rowCount());
    for (const Row& row : m_rows) ids.append(row.id);
    return ids;
}

std::vector<int> CRecordListModel::RowsOf(const QStringList& ids) const {
    if (ids.isEmpty()) return {};
    if (const auto rows = RowsByPlace(ids)) return *rows;
    const QSet<QString> wanted(ids.begin(), ids.end());
    std::vector<int> rows;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (wanted.contains(m_rows[row].id)) rows.push_back(static_cast<int>(row));
    return rows;
}

/// The places stand in the rows themselves, the identities somewhere in memory: among a million rows a record
/// is found in a fraction of the time. Nothing when one of the records has no place.
std::optional<std::vector<int>> CRecordListModel::RowsByPlace(const QStringList& ids) const {
    if (m_edition != m_document.PlacesEdition()) return std::nullopt;
    std::vector<bool> wanted(m_document.VisiblePlaces());
    for (const QString& id : ids) {
        const std::size_t place = m_document.VisiblePlaceOf(id);
        if (place >= wanted.size()) return std::nullopt;
        wanted[place] = true;
    }
    std::vector<int> rows;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (m_rows[row].place < wanted.size() && wanted[m_rows[row].place])
            rows.push_back(static_cast<int>(row));
    return rows;
}

/// In the order of the records, as PutRows.
std::vector<int> CRecordListModel::RowsWith(const RecordWords& words) const {
    constexpr std::size_t kAhead = 16;
    const RecordKind kind = KindOf(theRecordMode);
    std::vector<bool> hasWords(m_document.VisiblePlaces());
    for (std::size_t place = 0; place < hasWords.size(); ++place) {
        if (const CVORec* next = m_document.VisibleAt(place + kAhead)) RecordWords::Announce(kind, *next);
        if (const CVORec* record = m_document.VisibleAt(place)) hasWords[place] = words.Matches(*record);
    }
    std::vector<int> rows;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        if (const std::size_t place = PlaceOf(m_rows[row]); place < hasWords.size() && hasWords[place])
            rows.push_back(static_cast<int>(row));
    return rows;
}

/// A few are read one by one; of many the walk through all is the quicker one.
std::vector<int> CRecordListModel::RowsWith(const RecordWords& words, const std::vector<int>& among) const {
    constexpr std::size_t kFewOf = 10;
    if (among.size() > m_rows.size() / kFewOf) return RowsWith(words);
    std::vector<int> rows;
    for (const int row : among)
        if (const CVORec* record = VisibleAt(row); record && words.Matches(*record)) rows.push_back(row);
    return rows;
}

QString CRecordListModel::SearchedTextOf(int row, int column) const {
    const FieldRow* field = FieldOfColumn(column);
    const bool isSearched = field && (field->form == FieldForm::Text || field->form == FieldForm::Notes);
    return isSearched ? TextOf(row, column) : QString();
}

void CRecordListModel::TouchTimers(int firstRow, int lastRow) {
    if (firstRow > lastRow || lastRow >= rowCount()) return;
    const int column = m_layout == ListLayout::Columns ? ModelColumnOf(Column::kDuration) : 1;
    // The roles say that no record has changed.
    const QList<int> roles{Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole, ImageRole};
    Q_EMIT dataChanged(index(firstRow, 0), index(lastRow, 0), roles);
    if (column >= 0) Q_EMIT dataChanged(index(firstRow, column), index(lastRow, column), roles);
}

/// A record of the other kind can be added as well; it isn't shown.
void CRecordListModel::AddRows(const QStringList& added) {
    QStringList ids;
    for (const QString& id : added)
        if (m_document.IsVisible(id)) ids.append(id);
    const bool inPlace = m_settings.resortOnChange && m_inOrder && ids.size() <= kFewRows;
    if (inPlace) {
        for (const QString& id : ids) InsertSorted(id);
        return;
    }
    Append(ids);
    if (m_settings.resortOnChange)
        Sort();
    else
        m_inOrder = false;
}

void CRecordListModel::Append(const QStringList& ids) {
    if (ids.isEmpty()) return;
    MakeRoom(static_cast<std::size_t>(ids.size()));
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(ids.size()) - 1);
    for (const QString& id : ids) m_rows.push_back(RowOf(id));
    endInsertRows();
}

/// An eighth more than is needed: doubling would leave a million rows with the room of two.
void CRecordListModel::MakeRoom(std::size_t more) {
    constexpr std::size_t kLeast = 8;
    const std::size_t needed = m_rows.size() + more;
    if (needed > m_rows.capacity()) m_rows.reserve(needed + std::max(kLeast, needed / 8));
}

void CRecordListModel::ReturnRoom() {
    if (m_rows.size() < m_rows.capacity() / 2) m_rows.shrink_to_fit();
}

void CRecordListModel::ChangeRows(const QStringList& ids) {
    const std::vector<int> rows = RowsOf(ids);
    TakeDays(rows);
    TouchRows(rows);
    if (!m_settings.resortOnChange) {
        m_inOrder = m_inOrder && rows.empty();
        return;
    }
    if (rows.size() == 1 && m_inOrder) return MoveToPlace(rows.front());
    if (!rows.empty()) Sort();
}

void CRecordListModel::RemoveRows(const QStringList& ids) {
    const std::vector<int> rows = RowsOf(ids);
    if (static_cast<qsizetype>(rows.size()) > kFewRows) {
        // One reset instead of many shifts: each would move every row behind it.
        beginResetModel();
        const QSet<QString> gone(ids.begin(), ids.end());
        std::erase_if(m_rows, [&gone](const Row& row) { return gone.contains(row.id); });
        ReturnRoom();
        endResetModel();
        return;
    }
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        beginRemoveRows({}, *row, *row);
        m_rows.erase(m_rows.begin() + *row);
        endRemoveRows();
    }
    ReturnRoom();
}

void CRecordListModel::TouchRows(const std::vector<int>& rows) {
    for (const int row : rows) Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int CRecordListModel::ModelColumnOf(int column) const {
    if (m_layout != ListLayout::Columns) return -1;
    const auto found = std::find(m_columns.begin(), m_columns.end(), column);
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin()) + 1;
}

QString CRecordListModel::CaptionOf(int column) const {
    return m_settings.ListColumns().EntryAt(column).caption;
}

int CRecordListModel::ColumnOf(int modelColumn) const {
    const auto place = static_cast<std::size_t>(modelColumn);
    if (place == 0) return Column::kNone;
    if (m_layout == ListLayout::Columns)
        return place <= m_columns.size() ? m_columns[place - 1] : Column::kNone;
    if (m_layout == ListLayout::Lines || m_columns.empty()) return Column::kNone;
    return m_columns.front();  // one text for each row: that of the first visible column
}

int CRecordListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int CRecordListModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return m_layout == ListLayout::Columns ? static_cast<int>(m_columns.size()) + 1 : 2;
}

QVariant CRecordListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (role == OrderRole) return {};
    if (role == ColumnRole) return ColumnOf(index.column());
    if (role == IdRole) return IdAt(index.row());
    if (role == ListRowRole) return index.row();
    if (role == SearchedRole) return SearchedTextOf(index.row(), ColumnOf(index.column()));
    const CVORec* record = RecordAt(index.row());
    if (!record) return {};
    switch (role) {
        case Qt::DisplayRole:
            return TextAt(*record, index.column());
        case Qt::ToolTipRole:
            return index.column() == 0 ? StateInWords(*record)
                                       : CellNote(*record, ColumnOf(index.column()), m_timers);
        case Qt::AccessibleTextRole:
            return AccessibleText(*record, index.column());
        case Qt::TextAlignmentRole: {
            const bool right = IsRightAligned(ColumnOf(index.column()));
            return QVariant::fromValue(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
        }
        case ImageRole:
            return ImageOf(*record, index.column());
        default:
            return {};
    }
}

QString CRecordListModel::TextAt(const CVORec& record, int modelColumn) const {
    if (modelColumn == 0) return {};
    if (m_layout == ListLayout::Lines) return RecordInWords(record, m_settings, m_timers);
    const int column = ColumnOf(modelColumn);
    // Among columns the notes are an image, so that a long note doesn't fill the row.
    if (column == Column::kNone || IsImageColumn(column)) return {};
    return CellText(record, column, m_settings, m_timers);
}

/// A user who goes from row to row by the keyboard hears the first cell of each, so it tells the whole
/// record.
QString CRecordListModel::AccessibleText(const CVORec& record, int modelColumn) const {
    if (modelColumn == 0) {
        QStringList words{StateInWords(record), RecordInWords(record, m_settings, m_timers),
                          CellNote(record, Column::kDuration, m_timers)};
        words.removeAll(QString());
        return words.join(QStringLiteral(", "));
    }
    const int column = ColumnOf(modelColumn);
    return column != Column::kNone && IsImageColumn(column) ? FlagInWords(record, column, m_settings)
                                                            : TextAt(record, modelColumn);
}

QString CRecordListModel::StateInWords(const CVORec& record) const {
    switch (StateImageOf(record)) {
        case RowImage::TimerRunning:
            return LoadText(Text::StateRunning);
        case RowImage::TimerPaused:
            return LoadText(Text::StatePaused);
        case RowImage::DistanceEntry:
            return LoadText(Text::DistanceEntry);
        default:
            return {};
    }
}

RowImage CRecordListModel::StateImageOf(const CVORec& record) const {
    if (record.Kind() == RecordKind::Time) return TimerImage(m_timers.StateOf(record.GetId()));
    return FlagOf(record, Column::kIsDistance) ? RowImage::DistanceEntry : RowImage::Expense;
}

QVariant CRecordListModel::ImageOf(const CVORec& record, int modelColumn) const {
    if (modelColumn == 0) return static_cast<int>(StateImageOf(record));
    const int column = ColumnOf(modelColumn);
    if (column == Column::kNone || !IsImageColumn(column)) return {};
    return static_cast<int>(FlagOf(record, column) ? RowImage::FlagSet : RowImage::FlagClear);
}

QVariant CRecordListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    const int column = ColumnOf(section);
    if (column == Column::kNone) return {};
    if (role == Qt::DisplayRole) return CaptionOf(column);
    if (role == Qt::ToolTipRole) return FormatText<Text::TipHeader>(CaptionOf(column));
    if (role == Qt::TextAlignmentRole) {
        const bool right = IsRightAligned(column);
        return QVariant::fromValue(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    return {};
}

// --- The order of the rows: which column sorts, and how rows find their places

bool CRecordListModel::IsSortedByDate() const {
    return m_sortColumn != Column::kNone && CompareFormOf(m_sortColumn) == CompareForm::DateAndStart;
}

std::uint32_t CRecordListModel::Today() const {
    DateTimeVal today;
    (void)today.SetToday(m_document.GetPeriodContext().clock);
    return DayOrder(today.year, today.month, today.day);
}

bool CRecordListModel::IsTodayShown() const {
    const PeriodContext context = m_document.GetPeriodContext();
    DateTimeVal today, start, end;
    (void)today.SetToday(context.clock);
    const bool isBounded = m_document.CurrentFilter().Dates(start, end, context);
    return !isBounded || (!today.IsEarlierDate(start) && !today.IsLaterDate(end));
}

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
        if (const CVORec* record = m_document.VisibleAt(place))
            m_rows.push_back({record->GetId(), static_cast<std::uint32_t>(place)});
    SortRows();
}

void CRecordListModel::SortByHeader(int headerPosition) {
    SortBy(headerPosition, IsAscendingByHeader(headerPosition));
}

void CRecordListModel::SortBy(int headerPosition, bool isAscending) {
    if (headerPosition < 1 || headerPosition > static_cast<int>(m_columns.size())) return;
    const SortSettings stored = SortOf(m_settings);
    stored.ascending = isAscending;
    stored.column = m_sortColumn = m_columns[static_cast<std::size_t>(headerPosition - 1)];
    Sort();
}

bool CRecordListModel::IsAscendingByHeader(int headerPosition) const {
    const auto place = static_cast<std::size_t>(headerPosition) - 1;
    const bool isPresent =
        headerPosition >= 1 && place < m_columns.size() && m_columns[place] == m_sortColumn;
    return !isPresent || !SortsAscending();
}

int CRecordListModel::Compare(const RowKey& a, const RowKey& b) const {
    return CompareRows(CompareFormOf(m_sortColumn), a, b, SortsAscending());
}

RowKey CRecordListModel::KeyOf(const QString& id) const {
    const CVORec* record = m_document.FindRecord(id);
    return record ? MakeRowKey(*record, m_sortColumn, TheRegion()) : RowKey();
}

CRecordListModel::Row CRecordListModel::RowOf(const QString& id) const {
    const auto place = static_cast<std::uint32_t>(m_document.VisiblePlaceOf(id));
    return {id, place, IsSortedByDate() ? DayOfOrder(KeyOf(id).order) : 0};
}

void CRecordListModel::TakeDays(const std::vector<int>& rows) {
    if (!IsSortedByDate()) return;
    for (const int row : rows) m_rows[static_cast<std::size_t>(row)].day = DayOfOrder(KeyOf(IdAt(row)).order);
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
    if (IsSortedByDate())
        for (std::size_t row = 0; row < m_rows.size(); ++row)
            m_rows[row].day = DayOfOrder(sorter.OrderAt(row));
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
