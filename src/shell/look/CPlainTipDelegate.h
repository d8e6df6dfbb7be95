#pragma once

#include <QStyledItemDelegate>

/// Shows the tips of lines as they are written: users may write what looks like markup.
class CPlainTipDelegate final : public QStyledItemDelegate {
    Q_OBJECT

 public:
    explicit CPlainTipDelegate(QObject* parent) : QStyledItemDelegate(parent) {}
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};
