#include "shell/tree/CTreeDelegate.h"

#include "viewmodel/tree/CDataTreeModel.h"

#include <QIcon>

CTreeDelegate::CTreeDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

void CTreeDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != CDataTreeModel::TextSection) return;
    const bool isSelected = option->state & QStyle::State_Selected;
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = QIcon::fromTheme(isSelected ? QStringLiteral("folder-open") : QStringLiteral("folder"));
}
