#include "shell/lists/CItemView.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"
#include "shell/look/PlainTip.h"
#include "viewmodel/lists/CItemModel.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <algorithm>

CItemView::CItemView(CItemModel& items, QWidget* parent) : QTreeView(parent), m_items(items) {
    NameWidget(*this, QStringLiteral("items"), LoadText(Text::ItemColumn));
    setModel(&items);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(1);
    // Widths from the rows in sight: walking 50,000 of them for each letter typed would be felt.
    header()->setResizeContentsPrecision(0);
    header()->setSectionResizeMode(CItemModel::TextSection, QHeaderView::Stretch);
    header()->setSectionResizeMode(CItemModel::UseSection, QHeaderView::ResizeToContents);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QTreeView::doubleClicked, this, &CItemView::RenameWanted);
}

QStringList CItemView::Selected() const {
    QModelIndexList rows = selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    QStringList texts;
    for (const QModelIndex& row : rows) texts += m_items.TextAt(row.row());
    return texts;
}

QString CItemView::Current() const {
    const QModelIndex current = currentIndex();
    return current.isValid() && selectionModel()->isRowSelected(current.row()) ? m_items.TextAt(current.row())
                                                                               : QString();
}

void CItemView::Select(const QModelIndex& item) {
    setCurrentIndex(item);
    if (item.isValid()) scrollTo(item);
}

void CItemView::keyPressEvent(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier) return QTreeView::keyPressEvent(event);
    switch (event->key()) {
        case Qt::Key_Insert:
            Q_EMIT AddWanted();
            break;
        case Qt::Key_Delete:
            Q_EMIT DeleteWanted();
            break;
        case Qt::Key_F2:
            Q_EMIT RenameWanted();
            break;
        default:
            QTreeView::keyPressEvent(event);
    }
}

/// A text that is cut shows whole in its tip.
bool CItemView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    const auto& help = static_cast<QHelpEvent&>(*event);
    const QModelIndex item = indexAt(help.pos());
    const bool isCut = item.isValid() && item.column() == CItemModel::TextSection &&
                       sizeHintForIndex(item).width() > visualRect(item).width();
    QToolTip::showText(help.globalPos(), isCut ? PlainTip(m_items.TextAt(item.row())) : QString(), this);
    return true;
}
