#include "shell/controls/CPickGrid.h"

#include "shell/look/FormRows.h"

#include <QHeaderView>
#include <QKeyEvent>

CPickGrid::CPickGrid(const QStringList& captions, int columns, QWidget* parent)
    : QTableWidget((static_cast<int>(captions.size()) + columns - 1) / columns, columns, parent),
      m_count(static_cast<int>(captions.size())) {
    for (int place = 0; place < rowCount() * columns; ++place) {
        const bool isButton = place < m_count;
        auto* cell = new QTableWidgetItem(isButton ? captions[place] : QString());
        cell->setTextAlignment(Qt::AlignCenter);
        cell->setFlags(isButton ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
        setItem(place / columns, place % columns, cell);
    }
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    verticalHeader()->hide();
    FitToCells();
    connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int column) {
        if (HasPlace(row, column)) Q_EMIT Tapped(PlaceOf(row, column));
    });
    // A click on the button under the cursor is a tap too.
    connect(this, &QTableWidget::cellPressed, this, [this](int row, int column) {
        if (HasPlace(row, column)) Q_EMIT Tapped(PlaceOf(row, column));
    });
    connect(this, &QTableWidget::cellDoubleClicked, this, [this](int row, int column) {
        if (HasPlace(row, column)) Q_EMIT Taken(PlaceOf(row, column));
    });
}

/// No wider than its cells need to be; it grows with what holds it.
QSize CPickGrid::sizeHint() const {
    return {minimumWidth(), height()};
}

QModelIndex CPickGrid::IndexOf(int place) const {
    return model()->index(place / columnCount(), place % columnCount());
}

int CPickGrid::PlaceOf(int row, int column) const {
    return row * columnCount() + column;
}

bool CPickGrid::HasPlace(int row, int column) const {
    return row >= 0 && column >= 0 && PlaceOf(row, column) < m_count;
}

void CPickGrid::Show(int cursor, int lit) {
    const QSignalBlocker blocked(this);
    selectionModel()->setCurrentIndex(IndexOf(cursor), QItemSelectionModel::NoUpdate);
    if (lit == kNone)
        selectionModel()->clearSelection();
    else
        selectionModel()->select(IndexOf(lit), QItemSelectionModel::ClearAndSelect);
}

int CPickGrid::Lit() const {
    const QModelIndexList lit = selectedIndexes();
    return lit.isEmpty() ? kNone : PlaceOf(lit.front().row(), lit.front().column());
}

void CPickGrid::FitToCells() {
    int width = 0;
    for (int place = 0; place < m_count; ++place)
        width = qMax(width, fontMetrics().horizontalAdvance(IndexOf(place).data().toString()));
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kFormSpace);
    setMinimumWidth(columnCount() * (width + 2 * kFormSpace));
    setFixedHeight(verticalHeader()->length());
}

void CPickGrid::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Select:
            if (HasPlace(currentRow(), currentColumn()))
                Q_EMIT Tapped(PlaceOf(currentRow(), currentColumn()));
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            event->ignore();
            return;
        default:
            QTableWidget::keyPressEvent(event);
    }
}
