#include "shell/list/CRecordListView.h"

#include "app/RecordMode.h"
#include "config/CCfgStore.h"
#include "config/ColumnTable.h"
#include "lang/LoadText.h"
#include "shell/list/CListHeader.h"
#include "shell/list/CRecordLineDelegate.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/CShownRows.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>

namespace {

/// A selection of at most so many records is taken along when other rows are shown.
constexpr int kMostTakenAlong = 1000;

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
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int position) {
        m_model.SortByHeader(position);
        ApplyLayout();
    });
}

void CRecordListView::ApplyLayout() {
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
    for (const int row : rows) ids.append(m_model.IdAt(ListRowOf(row)));
    return ids;
}

int CRecordListView::SelectedCount() const {
    int count = 0;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        if (range.left() == 0) count += range.height();
    return count;
}

bool CRecordListView::IsSelected(const QString& id) const {
    const std::vector<int> rows = ShownRowsOf({id});
    return !rows.empty() && selectionModel()->isSelected(model()->index(rows.front(), 0));
}

void CRecordListView::ForEachSelected(const std::function<void(const CVORec& record)>& visit) const {
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom() && range.left() == 0; ++row)
            if (const CVORec* record = m_model.VisibleAt(ListRowOf(row))) visit(*record);
}

void CRecordListView::SelectNone() {
    selectionModel()->clearSelection();
}

void CRecordListView::SelectIds(const QStringList& ids) {
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
    return currentIndex().isValid() ? m_model.IdAt(ListRowOf(currentIndex().row())) : QString();
}

void CRecordListView::SetCurrentId(const QString& id) {
    if (ShownCount() == 0) return;
    const std::vector<int> rows = id.isEmpty() ? std::vector<int>() : ShownRowsOf({id});
    const QModelIndex current = model()->index(rows.empty() ? 0 : rows.front(), 0);
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
}

int CRecordListView::ListRowOf(int row) const {
    return IsFinding() ? m_found->ListRowOf(row) : row;
}

std::vector<int> CRecordListView::ShownRowsOf(const QStringList& ids) const {
    std::vector<int> rows = m_model.RowsOf(ids);
    if (!IsFinding()) return rows;
    for (int& row : rows) row = m_found->ShownRowOf(row);
    std::erase(rows, -1);
    return rows;
}

bool CRecordListView::IsFinding() const {
    return m_found->IsFinding();
}

int CRecordListView::ShownCount() const {
    return model()->rowCount();
}

QStringList CRecordListView::ShownIds() const {
    if (!IsFinding()) return m_model.AllIds();
    QStringList ids;
    for (int row = 0; row < ShownCount(); ++row) ids.append(m_model.IdAt(ListRowOf(row)));
    return ids;
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
        ShowModel(IsFinding() ? static_cast<QAbstractItemModel&>(*m_found) : m_model);
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
    CaptureWidths();
    setModel(&shown);
    delete former;
    ApplyLayout();
}

void CRecordListView::RememberPlace() {
    m_hasSelected = false;
    const int top = rowAt(0);
    m_before = {.selected = SelectedCount() <= kMostTakenAlong ? SelectedIds() : QStringList(),
                .current = CurrentId(),
                .top = top < 0 ? QString() : m_model.IdAt(ListRowOf(top))};
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
    const int rows = ShownCount();
    if (rows == 0) return {0, -1};
    const int first = std::max(rowAt(0), 0);
    const int last = rowAt(viewport()->height() - 1);
    return {first, last < 0 ? rows - 1 : last};
}

std::vector<int> CRecordListView::ListRowsInSight() const {
    const auto [first, last] = RowsInSight();
    std::vector<int> rows;
    for (int row = first; row <= last; ++row) rows.push_back(ListRowOf(row));
    return rows;
}

QModelIndex CRecordListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int column = std::max(currentIndex().column(), 0);
    if (action == MoveHome) return model()->index(0, column);
    if (action == MoveEnd) return model()->index(ShownCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}

bool CRecordListView::IsOnCheckBox(const QPoint& at) const {
    const int left = columnViewportPosition(0);
    return at.x() >= left && at.x() < left + CRecordDelegate::kImage && rowAt(at.y()) >= 0;
}

void CRecordListView::ToggleRow(int row) {
    const QModelIndex index = model()->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    selectionModel()->select(index, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
}

/// Escape ends the search and nothing else, whatever it is a shortcut of.
bool CRecordListView::event(QEvent* event) {
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
    QTableView::keyPressEvent(event);
}

void CRecordListView::mousePressEvent(QMouseEvent* event) {
    m_isToggling = event->button() == Qt::LeftButton && IsOnCheckBox(event->pos());
    if (!m_isToggling) return QTableView::mousePressEvent(event);
    setFocus(Qt::MouseFocusReason);
    ToggleRow(rowAt(event->pos().y()));
}

void CRecordListView::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(m_isToggling, false)) QTableView::mouseReleaseEvent(event);
}

/// Two quick clicks on a check box are two toggles and edit nothing.
void CRecordListView::mouseDoubleClickEvent(QMouseEvent* event) {
    const int row = rowAt(event->pos().y());
    if (event->button() != Qt::LeftButton || row < 0) return;
    if (IsOnCheckBox(event->pos()))
        mousePressEvent(event);
    else
        Q_EMIT EditWanted(m_model.IdAt(ListRowOf(row)));
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
