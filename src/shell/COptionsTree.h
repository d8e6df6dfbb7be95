#pragma once

#include <QTreeView>

/// The tree of options. Screen readers find its rows as check boxes and radio buttons, see
/// COptionsTreeAccess, and hear when one of them changes.
class COptionsTree final : public QTreeView {
    Q_OBJECT

 public:
    explicit COptionsTree(QWidget* parent = nullptr) : QTreeView(parent) {}

    /// The rows that aren't folded away, one below the other, by their first columns.
    [[nodiscard]] QModelIndexList Rows() const;
    /// The number by which Qt calls a cell when it tells screen readers of it: those of the header come
    /// first.
    [[nodiscard]] int NumberOf(const QModelIndex& cell) const;
    /// What Space does on a row: a check box changes, a radio button is marked, a value is edited.
    void Act(const QModelIndex& cell);

    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles) override;
};
