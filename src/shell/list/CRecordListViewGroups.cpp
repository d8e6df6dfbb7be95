// Heads of groups among the rows: how high they are, how they are drawn, and what folds them.

#include "config/CCfgStore.h"
#include "shell/list/CRecordLineDelegate.h"
#include "shell/list/CRecordListView.h"
#include "shell/list/GroupHeadLine.h"
#include "viewmodel/list/CGroupedRows.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/CShownRows.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <array>

namespace {

/// What a key does to a head.
enum class Folding { Fold, Unfold, Toggle };
struct KeyRow {
    int key;
    Folding folding;
};
constexpr std::array<KeyRow, 7> kKeys = {{{Qt::Key_Left, Folding::Fold},
                                          {Qt::Key_Minus, Folding::Fold},
                                          {Qt::Key_Right, Folding::Unfold},
                                          {Qt::Key_Plus, Folding::Unfold},
                                          {Qt::Key_Return, Folding::Toggle},
                                          {Qt::Key_Enter, Folding::Toggle},
                                          {Qt::Key_Space, Folding::Toggle}}};

}  // namespace

// --- Which rows are shown

bool CRecordListView::IsGrouped() const {
    return model() == m_grouped;
}

/// By another column the records of a day stand apart, and a large icon has no line for a head.
bool CRecordListView::WantsGroups() const {
    const ListLayout layout = m_model.Layout();
    return (layout == ListLayout::Columns || layout == ListLayout::Lines) &&
           ListGroupsOf(m_settings.listGroups) != ListGroups::None && m_model.IsSortedByDate();
}

/// Unlike IsFinding, also in the moment in which a search begins or ends.
bool CRecordListView::ShowsFound() const {
    return model() == m_found || (IsGrouped() && m_grouped->sourceModel() == m_found);
}

/// The list, those found in it, or one of the two with heads. The selection is taken along when it is small
/// or all there is.
void CRecordListView::ShowRightRows() {
    QAbstractItemModel& rows =
        IsFinding() ? static_cast<QAbstractItemModel&>(*m_found) : static_cast<QAbstractItemModel&>(m_model);
    const bool isGrouped = WantsGroups();
    QAbstractItemModel& shown = isGrouped ? static_cast<QAbstractItemModel&>(*m_grouped) : rows;
    const bool isSame = model() == &shown && (!isGrouped || m_grouped->sourceModel() == &rows);
    if (isSame) return;
    const int count = SelectedCount();
    const bool areAll = count > 0 && count == ShownCount();
    const QStringList selected = !areAll && count <= kMostTakenAlong ? SelectedIds() : QStringList();
    const QString current = CurrentId();
    const bool isTold = m_isFollowing || count == 0;
    {
        const QScopedValueRollback following(m_isFollowing, true);
        if (isGrouped) m_grouped->Begin(IsFinding());
        ShowModel(shown);
        if (!isGrouped) m_grouped->End();
        if (areAll)
            selectAll();
        else
            SelectShown(ShownRowsOf(selected));
        SetCurrentId(current);
    }
    if (!isTold) Q_EMIT SelectionChanged();
}

bool CRecordListView::IsHead(int row) const {
    return IsGrouped() && m_grouped->IsHead(row);
}

int CRecordListView::RecordsIn(int first, int last) const {
    return IsGrouped() ? m_grouped->RecordsIn(first, last) : last - first + 1;
}

// --- Heights

void CRecordListView::reset() {
    QTableView::reset();
    SizeRows();
}

void CRecordListView::rowsInserted(const QModelIndex& parent, int first, int last) {
    QTableView::rowsInserted(parent, first, last);
    SizeHeads(first, last);
}

/// All rows have the height of a record but the heads, wherever these stood before.
void CRecordListView::SizeRows() {
    if (!IsGrouped()) return;
    {
        const QSignalBlocker quiet(verticalHeader());
        verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
    }
    SizeHeads(0, model()->rowCount() - 1);
}

/// A head has one line in each layout. The header is kept from drawing meanwhile: it would look for the place
/// of each section, and among a million rows for thousands of them.
void CRecordListView::SizeHeads(int first, int last) {
    if (!IsGrouped()) return;
    QHeaderView& rows = *verticalHeader();
    const int height = m_cells->RowHeight(fontMetrics());
    if (height == rows.defaultSectionSize()) return;
    const QSignalBlocker quiet(&rows);
    rows.setUpdatesEnabled(false);
    for (const int head : m_grouped->Heads())
        if (head >= first && head <= last) rows.resizeSection(head, height);
    rows.setUpdatesEnabled(true);
    updateGeometries();
    viewport()->update();
}

// --- Drawing

/// The frame of a head that has the keyboard goes over all columns.
void CRecordListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (IsGrouped()) viewport()->update();
}

void CRecordListView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!IsGrouped()) return;
    const auto [first, last] = RowsInSight();
    QPainter painter(viewport());
    painter.setClipRegion(event->region());
    for (int row = first; row <= last; ++row)
        if (IsHead(row)) PaintHead(painter, row);
}

void CRecordListView::PaintHead(QPainter& painter, int row) {
    const QRect line(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
    const auto rightOf = [this, &line](std::initializer_list<int> columns) {
        for (const int column : columns)
            if (const int section = m_model.ModelColumnOf(column); section > 0)
                return columnViewportPosition(section) + columnWidth(section);
        return line.right() + 1;
    };
    const bool hasKeyboard = hasFocus() && currentIndex().row() == row;
    PaintGroupHead(painter, {.head = m_grouped->HeadAt(row),
                             .line = line,
                             .hoursRight = rightOf({Column::kDuration, Column::kEffective}),
                             .moneyRight = rightOf({Column::kAmount, Column::kExpenseAmount}),
                             .font = font(),
                             .hasKeyboard = hasKeyboard,
                             .colours = m_cells->Colours(),
                             .style = *style()});
}

// --- Folding

void CRecordListView::Fold(int headRow, bool isFolded) {
    m_grouped->SetFolded(headRow, isFolded);
}

void CRecordListView::FoldAll(bool isFolded) {
    if (!IsGrouped() || m_grouped->Heads().empty()) return;
    const QModelIndex current = currentIndex();
    const std::uint32_t day = current.isValid() ? m_grouped->FirstDayOf(m_grouped->HeadOf(current.row())) : 0;
    m_grouped->SetAllFolded(isFolded);
    SizeRows();
    const int head = current.isValid() ? m_grouped->HeadOfDay(day) : -1;
    if (head < 0) return;
    if (isFolded) selectionModel()->setCurrentIndex(model()->index(head, 0), QItemSelectionModel::Clear);
    scrollTo(model()->index(head, 0));
}

bool CRecordListView::AreAllFolded() const {
    return IsGrouped() && m_grouped->AreAllFolded();
}

void CRecordListView::selectAll() {
    if (IsGrouped() && m_grouped->IsAnyFolded()) FoldAll(false);
    QTableView::selectAll();
}

bool CRecordListView::IsGroupKey(const QKeyEvent& event) const {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    return modifiers == Qt::NoModifier && currentIndex().isValid() && IsHead(currentIndex().row()) &&
           std::ranges::find(kKeys, event.key(), &KeyRow::key) != kKeys.end();
}

bool CRecordListView::ApplyGroupKey(int key) {
    const int head = currentIndex().row();
    const bool isFolded = m_grouped->HeadAt(head).isFolded;
    const Folding folding = std::ranges::find(kKeys, key, &KeyRow::key)->folding;
    Fold(head, folding == Folding::Toggle ? !isFolded : folding == Folding::Fold);
    return true;
}

/// Left goes from a record to its head, as in a tree, where there is nothing to scroll to on that side.
bool CRecordListView::GoToHead() {
    if (!IsGrouped() || !currentIndex().isValid()) return false;
    if (horizontalScrollBar()->value() > horizontalScrollBar()->minimum()) return false;
    const int head = m_grouped->HeadOf(currentIndex().row());
    setCurrentIndex(model()->index(head, 0));
    return true;
}

/// A click on a head folds or unfolds its group, and the selection of other records stays.
bool CRecordListView::FoldAt(const QPoint& at) {
    const int row = rowAt(at.y());
    if (row < 0 || !IsHead(row)) return false;
    setFocus(Qt::MouseFocusReason);
    selectionModel()->setCurrentIndex(model()->index(row, 0), QItemSelectionModel::NoUpdate);
    Fold(row, !m_grouped->HeadAt(row).isFolded);
    return true;
}

/// The rows are replaced in two steps, without any between them: only a place that there is counts.
void CRecordListView::RememberHead() {
    if (!IsGrouped() || !currentIndex().isValid()) return;
    m_hadHead = m_grouped->IsHead(currentIndex().row());
    if (m_hadHead) m_headDay = m_grouped->FirstDayOf(currentIndex().row());
}

/// The keyboard goes from a record that is deleted to the next one, or else to the one before it, never to a
/// head. This comes before the selection looks for a place by itself.
void CRecordListView::LeaveRows(const QModelIndex&, int first, int last) {
    const QModelIndex current = currentIndex();
    if (!IsGrouped() || current.row() < first || current.row() > last || IsHead(current.row())) return;
    int row = last + 1;
    while (row < model()->rowCount() && IsHead(row)) ++row;
    if (row == model()->rowCount())
        for (row = first - 1; row >= 0 && IsHead(row);) --row;
    if (row >= 0)
        selectionModel()->setCurrentIndex(model()->index(row, current.column()),
                                          QItemSelectionModel::NoUpdate);
}
