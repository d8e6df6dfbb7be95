#pragma once

#include <QStyledItemDelegate>

/// Draws the nodes of the data tree: each has a folder before its text, an open one where it is selected.
class CTreeDelegate final : public QStyledItemDelegate {
    Q_OBJECT

 public:
    explicit CTreeDelegate(QObject* parent);

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
