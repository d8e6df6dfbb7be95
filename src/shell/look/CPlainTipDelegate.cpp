#include "shell/look/CPlainTipDelegate.h"

#include "shell/look/PlainTip.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

bool CPlainTipDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), PlainTip(index.data(Qt::ToolTipRole).toString()), view,
                       view->visualRect(index));
    return true;
}
