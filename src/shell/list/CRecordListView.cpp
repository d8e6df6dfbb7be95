#include "shell/list/CRecordListView.h"

#include "app/RecordMode.h"
#include "config/CCfgStore.h"
#include "config/ColumnTable.h"
#include "lang/LoadText.h"
#include "shell/list/CListHeader.h"
#include "shell/list/CRecordLineDelegate.h"
#include "viewmodel/list/CGroupedRows.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/CShownRows.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>

namespace {

/// A list font that was never chosen is the desktop's.
QFont ListFontOf(const FontRecord& record) {
    if (record.ToBytes() == FontRecord{.face = LoadText(Text::DefaultFontFace)}.ToBytes() ||
        record.face.isEmpty())
        return QApplication::font();
    QFont font(record.face);
    font.setPointSizeF(record.tenthsOfPoint / 10.0);
    font.setWeight(static_cast<QFont::Weight>(std::clamp(record.weight, 1, 1000)));
    font.setItalic(record.italic);
    return font;
}

}  // namespace

CRecordListView::CRecordListView(CRecordListModel& model, CCfgStore& settings, QWidget* parent)
    : QTableView(parent),
      m_model(model),
      m_settings(settings),
      m_cells(new CRecordDelegate(settings, this)),
      m_lines(new CRecordLineDelegate(settings, model, this)),
      m_found(new CShownRows(model, this)),
      m_grouped(new CGroupedRows(model, *m_found, settings, this)),
      m_header(new CListHeader(*this, model, settings)) {
    setObjectName(QStringLiteral("recordList"));
    setAccessibleName(LoadText(Text::ListName));
    setModel(&model);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerItem);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(m_header, &CListHeader::Resized, this, &CRecordListView::ColumnResized);
    connect(m_header, &CListHeader::FitWanted, this, &CRecordListView::FitWanted);
    connect(m_header, &CListHeader::Moved, this, &CRecordListView::ColumnsMoved);
    connect(m_header, &CListHeader::MenuWanted, this, &CRecordListView::HeaderMenuWanted);
    connect(m_grouped, &QAbstractItemModel::modelAboutToBeReset, this, &CRecordListView::RememberHead);
    connect(m_grouped, &QAbstractItemModel::rowsAboutToBeRemoved, this, &CRecordListView::LeaveRows);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int position) {
        m_model.SortByHeader(position);
        ApplyLayout();
    });
}

void CRecordListView::ApplyLayout() {
    ShowRightRows();
    ApplyFont();
    const ListColours colours = MakeListColours(m_settings, QApplication::palette());
    m_cells->SetColours(colours);
    m_lines->SetColours(colours);
    const ColumnHalf half = HalfOf(KindOf(theRecordMode));
    m_lines->SetLines(BuildLines(m_model.VisibleColumns(), m_settings.ListColumns().Breaks(half)));
    const ListLayout layout = m_model.Layout();
    CRecordDelegate* delegate = layout == ListLayout::Lines ? m_lines : m_cells;
    setItemDelegate(delegate);
    const int height = delegate->RowHeight(fontMetrics());
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(height);
    SizeRows();
    setHorizontalScrollBarPolicy(layout == ListLayout::Columns ? Qt::ScrollBarAsNeeded
                                                               : Qt::ScrollBarAlwaysOff);
    m_header->Apply();
    viewport()->update();
}

void CRecordListView::ApplyFont() {
    const QFont listFont = ListFontOf(m_settings.ListFont());
    if (font() != listFont) setFont(listFont);
    if (horizontalHeader()->font() != listFont) horizontalHeader()->setFont(listFont);
}

void CRecordListView::CaptureWidths() {
    m_header->Capture();
}

void CRecordListView::FitColumns() {
    m_header->Forget();
    ApplyLayout();
}

QStringList CRecordListView::SelectedIds() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom() && range.left() == 0; ++row) rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    QStringList ids;
    ids.reserve(static_cast<qsizetype>(rows.size()));
    for (const int row : rows)
        if (!IsHead(row)) ids.append(IdAt(row));
    return ids;
}

int CRecordListView::SelectedCount() const {
    int count = 0;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        if (range.left() == 0) count += RecordsIn(range.top(), range.bottom());
    return count;
}

bool CRecordListView::IsSelected(const QString& id) const {
    const std::vector<int> rows = ShownRowsOf({id});
    return !rows.empty() && selectionModel()->isSelected(model()->index(rows.front(), 0));
}

void CRecordListView::ForEachSelected(const std::function<void(const CVORec& record)>& visit) const {
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom() && range.left() == 0; ++row) {
            const int listRow = ListRowOf(row);
            const CVORec* record = listRow < 0 ? nullptr : m_model.VisibleAt(listRow);
            if (record) visit(*record);
        }
}

void CRecordListView::SelectNone() {
    selectionModel()->clearSelection();
}

void CRecordListView::SelectIds(const QStringList& ids) {
    if (IsGrouped() && m_grouped->IsAnyFolded()) m_grouped->Show(FoundRowsOf(ids));
    const std::vector<int> rows = ShownRowsOf(ids);
    SelectShown(rows);
    if (rows.empty()) return;
    const QModelIndex first = model()->index(rows.front(), 0);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    scrollTo(first);
}

void CRecordListView::SelectShown(const std::vector<int>& rows) {
    QItemSelection selection;
    const int lastColumn = m_model.columnCount() - 1;
    for (const int row : rows) selection.select(model()->index(row, 0), model()->index(row, lastColumn));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

QString CRecordListView::CurrentId() const {
    return currentIndex().isValid() ? IdAt(currentIndex().row()) : QString();
}

void CRecordListView::SetCurrentId(const QString& id) {
    if (ShownCount() == 0) return;
    selectionModel()->setCurrentIndex(model()->index(RowToStandOn(id), 0), QItemSelectionModel::NoUpdate);
}

int CRecordListView::RowToStandOn(const QString& id) const {
    if (id.isEmpty()) {
        const int head = IsGrouped() && m_hadHead ? m_grouped->HeadOfDay(m_headDay) : -1;
        return head >= 0 ? head : FirstRecordRow();
    }
    const std::vector<int> rows = ShownRowsOf({id});
    if (!rows.empty()) return rows.front();
    const std::vector<int> folded = IsGrouped() ? FoundRowsOf({id}) : std::vector<int>();
    return folded.empty() ? FirstRecordRow() : std::max(m_grouped->HeadOfSource(folded.front()), 0);
}

/// The first row when the record is folded away.
int CRecordListView::FirstRecordRow() const {
    return IsGrouped() ? std::max(m_grouped->RowOf(0), 0) : 0;
}

/// -1 for a head.
int CRecordListView::ListRowOf(int row) const {
    const int found = IsGrouped() ? m_grouped->SourceRowOf(row) : row;
    return ShowsFound() && found >= 0 ? m_found->ListRowOf(found) : found;
}

QString CRecordListView::IdAt(int row) const {
    const int listRow = ListRowOf(row);
    return listRow < 0 ? QString() : m_model.IdAt(listRow);
}

/// The rows of the list, or among those found, below the heads.
std::vector<int> CRecordListView::FoundRowsOf(const QStringList& ids) const {
    std::vector<int> rows = m_model.RowsOf(ids);
    if (!ShowsFound()) return rows;
    for (int& row : rows) row = m_found->ShownRowOf(row);
    std::erase(rows, -1);
    return rows;
}

std::vector<int> CRecordListView::ShownRowsOf(const QStringList& ids) const {
    std::vector<int> rows = FoundRowsOf(ids);
    if (!IsGrouped()) return rows;
    for (int& row : rows) row = m_grouped->RowOf(row);
    std::erase(rows, -1);
    return rows;
}

bool CRecordListView::IsFinding() const {
    return m_found->IsFinding();
}

int CRecordListView::ShownCount() const {
    return IsFinding() ? m_found->rowCount() : m_model.rowCount();
}

QStringList CRecordListView::ShownIds() const {
    if (!IsFinding()) return m_model.AllIds();
    QStringList ids;
    for (int row = 0; row < ShownCount(); ++row) ids.append(m_model.IdAt(m_found->ListRowOf(row)));
    return ids;
}

void CRecordListView::ForEachFound(const std::function<void(const CVORec& record)>& visit) const {
    for (int row = 0; row < m_found->rowCount(); ++row)
        if (const CVORec* record = m_model.VisibleAt(m_found->ListRowOf(row))) visit(*record);
}

void CRecordListView::Find(const QString& words) {
    const bool wasFinding = IsFinding();
    if (!wasFinding) RememberPlace();
    const Place before{.selected = SelectedCount() <= kMostTakenAlong ? SelectedIds() : QStringList(),
                       .current = CurrentId(),
                       .top = {}};
    {
        const QScopedValueRollback following(m_isFollowing, true);
        m_found->Find(words);
        for (CRecordDelegate* cells : {m_cells, static_cast<CRecordDelegate*>(m_lines)})
            cells->SetWords(words);
        if (wasFinding != IsFinding()) {
            CaptureWidths();
            ApplyLayout();
        }
        SelectShown(ShownRowsOf(before.selected));
        SetCurrentId(before.current);
        if (wasFinding && !IsFinding()) TakeUpPlace();
    }
    Q_EMIT SelectionChanged();
}

/// The view makes itself a new selection with each model; its columns come from the settings again.
void CRecordListView::ShowModel(QAbstractItemModel& shown) {
    if (model() == &shown) return;
    const QItemSelectionModel* former = selectionModel();
    setModel(&shown);
    delete former;
    // Behind the headers, which follow the model since now.
    disconnect(m_grouped, &QAbstractItemModel::layoutChanged, this, &CRecordListView::SizeRows);
    connect(m_grouped, &QAbstractItemModel::layoutChanged, this, &CRecordListView::SizeRows);
}

void CRecordListView::RememberPlace() {
    m_hasSelected = false;
    const int top = rowAt(0);
    m_before = {.selected = SelectedCount() <= kMostTakenAlong ? SelectedIds() : QStringList(),
                .current = CurrentId(),
                .top = top < 0 ? QString() : IdAt(top)};
}

/// What the user has selected among the records found stays selected, now with all others around it.
void CRecordListView::TakeUpPlace() {
    if (m_hasSelected) return scrollTo(currentIndex());
    SelectShown(ShownRowsOf(m_before.selected));
    SetCurrentId(m_before.current);
    const std::vector<int> top = m_before.top.isEmpty() ? std::vector<int>() : ShownRowsOf({m_before.top});
    if (!top.empty()) scrollTo(model()->index(top.front(), 0), PositionAtTop);
}

std::pair<int, int> CRecordListView::RowsInSight() const {
    const int rows = model()->rowCount();
    if (rows == 0) return {0, -1};
    const int first = std::max(rowAt(0), 0);
    const int last = rowAt(viewport()->height() - 1);
    return {first, last < 0 ? rows - 1 : last};
}

std::vector<int> CRecordListView::ListRowsInSight() const {
    const auto [first, last] = RowsInSight();
    std::vector<int> rows;
    for (int row = first; row <= last; ++row)
        if (!IsHead(row)) rows.push_back(ListRowOf(row));
    return rows;
}

QModelIndex CRecordListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int column = std::max(currentIndex().column(), 0);
    if (action == MoveHome) return model()->index(0, column);
    if (action == MoveEnd) return model()->index(model()->rowCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}

bool CRecordListView::IsOnCheckBox(const QPoint& at) const {
    const int left = columnViewportPosition(0);
    const int row = rowAt(at.y());
    return at.x() >= left && at.x() < left + CRecordDelegate::kImage && row >= 0 && !IsHead(row);
}

void CRecordListView::ToggleRow(int row) {
    const QModelIndex index = model()->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    selectionModel()->select(index, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
}

/// Escape ends the search and nothing else, whatever it is a shortcut of.
bool CRecordListView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsGroupKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && IsFinding() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void CRecordListView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && IsFinding()) {
        Q_EMIT FindEndWanted();
        return;
    }
    if (IsGroupKey(*event) && ApplyGroupKey(event->key())) return;
    if (event->key() == Qt::Key_Left && event->modifiers() == Qt::NoModifier && GoToHead()) return;
    QTableView::keyPressEvent(event);
}

void CRecordListView::mousePressEvent(QMouseEvent* event) {
    m_isToggling = event->button() == Qt::LeftButton && IsOnCheckBox(event->pos());
    if (event->button() == Qt::LeftButton && FoldAt(event->pos())) {
        m_isToggling = true;
        return;
    }
    if (!m_isToggling) return QTableView::mousePressEvent(event);
    setFocus(Qt::MouseFocusReason);
    ToggleRow(rowAt(event->pos().y()));
}

void CRecordListView::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(m_isToggling, false)) QTableView::mouseReleaseEvent(event);
}

/// Two quick clicks on a check box are two toggles and edit nothing; so they are on a head.
void CRecordListView::mouseDoubleClickEvent(QMouseEvent* event) {
    const int row = rowAt(event->pos().y());
    if (event->button() != Qt::LeftButton || row < 0) return;
    if (IsOnCheckBox(event->pos()) || IsHead(row))
        mousePressEvent(event);
    else
        Q_EMIT EditWanted(IdAt(row));
}

void CRecordListView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        Q_EMIT MenuWanted(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
    else
        Q_EMIT MenuWanted(event->globalPos());
}

void CRecordListView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (m_model.Layout() != ListLayout::Columns)
        return horizontalHeader()->resizeSection(1, viewport()->width() - horizontalHeader()->sectionSize(0));
    m_header->Fit();
}

/// The ground of selected rows depends on the focus.
void CRecordListView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    viewport()->update();
}

void CRecordListView::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void CRecordListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (m_isFollowing) return;
    m_hasSelected = m_hasSelected || !selected.isEmpty();
    Q_EMIT SelectionChanged();
}
