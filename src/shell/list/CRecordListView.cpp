#include "shell/list/CRecordListView.h"

#include "app/RecordMode.h"
#include "config/CCfgStore.h"
#include "config/ColumnCommand.h"
#include "config/ColumnTable.h"
#include "lang/FormatText.h"
#include "shell/list/CRecordLineDelegate.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <algorithm>

namespace {

/// The height of the font for which the default widths of the columns were chosen.
constexpr int kWidthsMadeFor = 12;
/// In place of a width that would leave nothing to see or to take hold of.
constexpr int kRaisedWidth = 5;

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
      m_lines(new CRecordLineDelegate(settings, model, this)) {
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
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(0);
    horizontalHeader()->setTextElideMode(Qt::ElideRight);
    horizontalHeader()->viewport()->installEventFilter(this);
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
    horizontalHeader()->setVisible(layout == ListLayout::Columns);
    setHorizontalScrollBarPolicy(layout == ListLayout::Columns ? Qt::ScrollBarAsNeeded
                                                               : Qt::ScrollBarAlwaysOff);
    ApplyWidths();
    const int sorted = m_model.ModelColumnOf(m_model.SortColumn());
    horizontalHeader()->setSortIndicatorShown(sorted > 0);
    if (sorted > 0)
        horizontalHeader()->setSortIndicator(
            sorted, m_model.SortsAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
    viewport()->update();
}

void CRecordListView::ApplyFont() {
    const QFont listFont = ListFontOf(m_settings.ListFont());
    if (font() != listFont) setFont(listFont);
    if (horizontalHeader()->font() != listFont) horizontalHeader()->setFont(listFont);
}

void CRecordListView::ApplyWidths() {
    QHeaderView& header = *horizontalHeader();
    const bool inColumns = m_model.Layout() == ListLayout::Columns;
    header.setStretchLastSection(true);
    header.setSectionResizeMode(QHeaderView::Interactive);
    const int least = m_model.Layout() == ListLayout::Icons ? CRecordDelegate::kLargeStateWidth : 1;
    header.resizeSection(0, std::max(m_settings.iconColumnWidth, least));
    m_applied = {{Column::kNone, header.sectionSize(0)}};
    if (!inColumns) return;
    for (int section = 1; section < m_model.columnCount(); ++section) {
        const int width = WidthOf(section);
        header.resizeSection(section, width);
        m_applied.emplace_back(m_model.VisibleColumns()[static_cast<std::size_t>(section - 1)], width);
    }
}

/// A width that the user has chosen is taken as it is. The others were chosen for one font and follow the
/// present one, with room for the caption, and for a running count.
int CRecordListView::WidthOf(int section) const {
    const int column = m_model.VisibleColumns()[static_cast<std::size_t>(section - 1)];
    const int stored = m_settings.ListColumns().EntryAt(column).width;
    const int preset = ColumnTable()[static_cast<std::size_t>(column)].width;
    if (stored != preset) return std::min(stored, kWidestColumn);
    const double scale = std::max(1.0, static_cast<double>(fontMetrics().height()) / kWidthsMadeFor);
    const int least = std::max(horizontalHeader()->sectionSizeHint(section),
                               column == Column::kDuration ? CountWidth() : 0);
    return std::max(static_cast<int>(preset * scale), least);
}

int CRecordListView::CountWidth() const {
    return fontMetrics().horizontalAdvance(FormatText<Text::TimerCount>(0, 0, 0)) +
           2 * CRecordDelegate::kMargin + 2;
}

/// Of a last column that was stretched to the end of the row: the width that was set.
int CRecordListView::PresentWidth(int section) const {
    const QHeaderView& header = *horizontalHeader();
    const bool isStretched =
        section > 0 && section == header.count() - 1 && header.length() <= header.viewport()->width();
    return isStretched ? m_applied[static_cast<std::size_t>(section)].second : header.sectionSize(section);
}

/// Only what differs from what was set here is the user's.
void CRecordListView::CaptureWidths() {
    const int sections = std::min(static_cast<int>(m_applied.size()), horizontalHeader()->count());
    for (int section = 0; section < sections; ++section) {
        auto& [column, width] = m_applied[static_cast<std::size_t>(section)];
        const int present = PresentWidth(section);
        if (present == width || present < 1) continue;
        width = present;
        if (column == Column::kNone)
            m_settings.iconColumnWidth = present;
        else
            m_settings.ListColumns().SetWidth(column, present);
    }
}

bool CRecordListView::eventFilter(QObject* watched, QEvent* event) {
    const bool isRelease = event->type() == QEvent::MouseButtonRelease &&
                           static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (isRelease && watched == horizontalHeader()->viewport()) EndDrag();
    return QTableView::eventFilter(watched, event);
}

/// The release that ends a drag or a double click on an edge; a click that sorts changes no width.
void CRecordListView::EndDrag() {
    bool isResized = false;
    for (int section = 0; section < std::min(static_cast<int>(m_applied.size()), horizontalHeader()->count());
         ++section) {
        if (PresentWidth(section) == m_applied[static_cast<std::size_t>(section)].second) continue;
        if (PresentWidth(section) < 1) horizontalHeader()->resizeSection(section, kRaisedWidth);
        isResized = true;
    }
    if (!isResized) return;
    Q_EMIT ColumnResized();
    viewport()->update();
}

QStringList CRecordListView::SelectedIds() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom() && range.left() == 0; ++row) rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    QStringList ids;
    ids.reserve(static_cast<qsizetype>(rows.size()));
    for (const int row : rows) ids.append(m_model.IdAt(row));
    return ids;
}

int CRecordListView::SelectedCount() const {
    int count = 0;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        if (range.left() == 0) count += range.height();
    return count;
}

void CRecordListView::ForEachSelected(const std::function<void(const CVORec& record)>& visit) const {
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom() && range.left() == 0; ++row)
            if (const CVORec* record = m_model.VisibleAt(row)) visit(*record);
}

void CRecordListView::SelectNone() {
    selectionModel()->clearSelection();
}

void CRecordListView::SelectIds(const QStringList& ids) {
    QItemSelection selection;
    const int lastColumn = m_model.columnCount() - 1;
    const std::vector<int> rows = m_model.RowsOf(ids);
    for (const int row : rows) selection.select(m_model.index(row, 0), m_model.index(row, lastColumn));
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (rows.empty()) return;
    const QModelIndex first = m_model.index(rows.front(), 0);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    scrollTo(first);
}

std::pair<int, int> CRecordListView::RowsInSight() const {
    const int rows = m_model.rowCount();
    if (rows == 0) return {0, -1};
    const int first = std::max(rowAt(0), 0);
    const int last = rowAt(viewport()->height() - 1);
    return {first, last < 0 ? rows - 1 : last};
}

QModelIndex CRecordListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int column = std::max(currentIndex().column(), 0);
    if (action == MoveHome) return m_model.index(0, column);
    if (action == MoveEnd) return m_model.index(m_model.rowCount() - 1, column);
    return QTableView::moveCursor(action, modifiers);
}

bool CRecordListView::IsOnCheckBox(const QPoint& at) const {
    const int left = columnViewportPosition(0);
    return at.x() >= left && at.x() < left + CRecordDelegate::kImage && rowAt(at.y()) >= 0;
}

void CRecordListView::ToggleRow(int row) {
    const QModelIndex index = m_model.index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    selectionModel()->select(index, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
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
        Q_EMIT EditWanted(m_model.IdAt(row));
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
        horizontalHeader()->resizeSection(1, viewport()->width() - horizontalHeader()->sectionSize(0));
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
    Q_EMIT SelectionChanged();
}
