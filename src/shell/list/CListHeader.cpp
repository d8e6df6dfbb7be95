#include "shell/list/CListHeader.h"

#include "app/RecordMode.h"
#include "config/CCfgStore.h"
#include "config/ColumnCommand.h"
#include "config/ColumnTable.h"
#include "lang/FormatText.h"
#include "shell/list/CRecordDelegate.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyleOptionHeader>
#include <QTableView>
#include <algorithm>
#include <numeric>

namespace {

/// The height of the font for which the default widths of the columns were chosen.
constexpr int kWidthsMadeFor = 12;
/// In place of a width that would leave nothing to see or to take hold of.
constexpr int kRaisedWidth = 5;
/// Of many rows so many from the top are measured, and as many from all over the list.
constexpr int kMeasuredRows = 100;
/// Rows that change or come by themselves are measured; where more do, the list is shown anew anyway.
constexpr int kFollowedRows = 8;
/// A text takes no more of the row by itself, and leaves no less to others, in characters.
constexpr int kMostCharacters = 32, kLeastCharacters = 9;
/// The edges of a cell, and a pixel for letters that lean.
constexpr int kEdges = 2 * CRecordDelegate::kMargin + 2;

}  // namespace

CListHeader::CListHeader(QTableView& view, CRecordListModel& model, CCfgStore& settings)
    : QObject(&view), m_view(view), m_model(model), m_settings(settings) {
    QHeaderView& header = Header();
    header.setSectionsClickable(true);
    header.setSectionsMovable(true);
    header.setFirstSectionMovable(false);
    header.setHighlightSections(false);
    header.setMinimumSectionSize(0);
    header.setTextElideMode(Qt::ElideRight);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    header.viewport()->installEventFilter(this);
    connect(&header, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        Q_EMIT MenuWanted(Header().viewport()->mapToGlobal(at), ColumnOf(Header().logicalIndexAt(at)));
    });
    connect(&header, &QHeaderView::sectionHandleDoubleClicked, this, [this](int section) {
        if (const int column = ColumnOf(section); column != Column::kNone) Q_EMIT FitWanted(column);
    });
    connect(&model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { FollowRows(first, last); });
    connect(
        &model, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& first, const QModelIndex& last) { FollowRows(first.row(), last.row()); });
}

QHeaderView& CListHeader::Header() const {
    return *m_view.horizontalHeader();
}

int CListHeader::ColumnOf(int section) const {
    const std::vector<int>& columns = m_model.VisibleColumns();
    const bool isColumn = m_model.Layout() == ListLayout::Columns && section >= 1 &&
                          section <= static_cast<int>(columns.size());
    return isColumn ? columns[static_cast<std::size_t>(section - 1)] : Column::kNone;
}

void CListHeader::Apply() {
    QHeaderView& header = Header();
    header.setVisible(m_model.Layout() == ListLayout::Columns);
    // Among columns the last one is given its share with the others: what it has is what was set.
    header.setStretchLastSection(m_model.Layout() != ListLayout::Columns);
    header.setSectionResizeMode(QHeaderView::Interactive);
    m_applied.clear();
    const int least = m_model.Layout() == ListLayout::Icons ? CRecordDelegate::kLargeStateWidth : 1;
    SetWidth(0, std::max(m_settings.iconColumnWidth, least));
    Measure();
    Fit();
    const int sorted = m_model.ModelColumnOf(m_model.SortColumn());
    header.setSortIndicatorShown(sorted > 0);
    if (sorted > 0)
        header.setSortIndicator(sorted, m_model.SortsAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void CListHeader::SetWidth(int section, int width) {
    m_applied.resize(std::max(m_applied.size(), static_cast<std::size_t>(section) + 1));
    Header().resizeSection(section, width);
    m_applied[static_cast<std::size_t>(section)] = {ColumnOf(section),
                                                    section == 0 ? Header().sectionSize(0) : width};
}

void CListHeader::Fit() {
    if (m_model.Layout() != ListLayout::Columns || m_applied.empty()) return;
    std::vector<ColumnNeed> needs;
    for (const int column : m_model.VisibleColumns()) needs.push_back(NeedOf(column));
    const int room = m_view.viewport()->width() - Header().sectionSize(0);
    std::vector<int> widths = FitColumns(needs, room);
    const int used = std::accumulate(widths.begin(), widths.end(), 0);
    if (!widths.empty() && used < room) widths.back() += room - used;
    for (std::size_t i = 0; i < widths.size(); ++i) SetWidth(static_cast<int>(i) + 1, widths[i]);
}

bool CListHeader::IsAutomatic(int column) const {
    return m_settings.ListColumns().EntryAt(column).width ==
           ColumnTable()[static_cast<std::size_t>(column)].width;
}

/// The default widths were chosen for one font and are air in another. Of texts alone a part may be enough: a
/// number that is cut is another number. Room for the mark of the order is in each width, whether it stands
/// there or not, so that nothing moves when it comes; over pictures it gives way to texts.
ColumnNeed CListHeader::NeedOf(int column) const {
    const int stored = m_settings.ListColumns().EntryAt(column).width;
    if (!IsAutomatic(column)) {
        const int width = std::min(stored, kWidestColumn);
        return {width, width, width};
    }
    const int letter = m_view.fontMetrics().averageCharWidth();
    const double scale = std::max(1.0, static_cast<double>(m_view.fontMetrics().height()) / kWidthsMadeFor);
    const int texts = std::min(m_measured.value(column), kMostCharacters * letter + kEdges);
    const int count = column == Column::kDuration ? CountWidth() : 0;
    const int content = std::max({CaptionWidth(column, !IsImageColumn(column)), texts, count});
    const int air = std::max(static_cast<int>(stored * scale), CaptionWidth(column, true));
    const bool isText = ColumnTable()[static_cast<std::size_t>(column)].kind == ColumnKind::Text;
    const int least = isText ? std::min(content, kLeastCharacters * letter + kEdges) : content;
    return {least, content, std::max(content, air)};
}

int CListHeader::CaptionWidth(int column, bool hasMark) const {
    QHeaderView& header = Header();
    QStyleOptionHeader option;
    option.initFrom(&header);
    option.fontMetrics = header.fontMetrics();
    option.text = m_model.CaptionOf(column);
    option.sortIndicator = hasMark ? QStyleOptionHeader::SortDown : QStyleOptionHeader::None;
    return header.style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), &header).width();
}

int CListHeader::CountWidth() const {
    return m_view.fontMetrics().horizontalAdvance(FormatText<Text::TimerCount>(0, 0, 0)) + kEdges;
}

void CListHeader::Measure() {
    if (m_model.Layout() != ListLayout::Columns) return;
    if (const QString font = m_view.font().toString(); font != m_measuredFont) {
        Forget();
        m_measuredFont = font;
    }
    const int rows = m_model.rowCount();
    for (int row = 0; row < std::min(rows, kMeasuredRows); ++row) static_cast<void>(MeasureRow(row));
    const int step = std::max(1, rows / kMeasuredRows);
    for (int row = kMeasuredRows; row < rows; row += step) static_cast<void>(MeasureRow(row));
}

/// Whether it needs more than all before.
bool CListHeader::MeasureRow(int row) {
    bool isWider = false;
    for (const int column : m_model.VisibleColumns()) {
        if (IsImageColumn(column) || !IsAutomatic(column)) continue;
        const int width = m_view.fontMetrics().horizontalAdvance(m_model.TextOf(row, column)) + kEdges;
        int& widest = m_measured[column];
        isWider = isWider || width > widest;
        widest = std::max(widest, width);
    }
    return isWider;
}

void CListHeader::FollowRows(int first, int last) {
    if (m_model.Layout() != ListLayout::Columns || last - first >= kFollowedRows) return;
    bool isWider = false;
    for (int row = first; row <= last; ++row) isWider = MeasureRow(row) || isWider;
    // The view hasn't taken the row in yet.
    if (isWider) QMetaObject::invokeMethod(this, &CListHeader::Fit, Qt::QueuedConnection);
}

/// Only what differs from what was set here is the user's.
void CListHeader::Capture() {
    const int sections = std::min(static_cast<int>(m_applied.size()), Header().count());
    for (int section = 0; section < sections; ++section) {
        auto& [column, width] = m_applied[static_cast<std::size_t>(section)];
        const int present = Header().sectionSize(section);
        if (present == width || present < 1) continue;
        width = present;
        if (column == Column::kNone)
            m_settings.iconColumnWidth = present;
        else
            m_settings.ListColumns().SetWidth(column, present);
    }
}

bool CListHeader::eventFilter(QObject* watched, QEvent* event) {
    const bool isRelease = event->type() == QEvent::MouseButtonRelease &&
                           static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (isRelease) EndDrag();
    return QObject::eventFilter(watched, event);
}

/// A click that sorts changes neither widths nor places. The widths are there by now; a column that was
/// dragged comes to its place after this event.
void CListHeader::EndDrag() {
    QMetaObject::invokeMethod(this, &CListHeader::TakeMove, Qt::QueuedConnection);
    if (!TakeWidths()) return;
    Q_EMIT Resized();
    // The others share what is left.
    QMetaObject::invokeMethod(this, &CListHeader::Fit, Qt::QueuedConnection);
    m_view.viewport()->update();
}

bool CListHeader::TakeWidths() {
    const int sections = std::min(static_cast<int>(m_applied.size()), Header().count());
    bool isResized = false;
    for (int section = 0; section < sections; ++section) {
        if (Header().sectionSize(section) == m_applied[static_cast<std::size_t>(section)].second) continue;
        if (Header().sectionSize(section) < 1) Header().resizeSection(section, kRaisedWidth);
        isResized = true;
    }
    return isResized;
}

/// The order is the settings': the header gets its own back and shows the columns as the list has them then.
void CListHeader::TakeMove() {
    QHeaderView& header = Header();
    std::vector<int> columns;
    for (int place = 0; place < header.count(); ++place)
        if (const int column = ColumnOf(header.logicalIndex(place)); column != Column::kNone)
            columns.push_back(column);
    if (columns.empty() || columns == m_model.VisibleColumns()) return;
    Capture();
    {
        const QSignalBlocker quiet(header);
        for (int section = 0; section < header.count(); ++section)
            header.moveSection(header.visualIndex(section), section);
    }
    Q_EMIT Moved(columns);
}
