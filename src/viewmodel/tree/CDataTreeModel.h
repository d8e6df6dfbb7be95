#pragma once

#include "viewmodel/tree/CDataTree.h"
#include "viewmodel/tree/CTreeListener.h"

#include <QAbstractItemModel>

/// The data tree for a view: one row for the root, below it the nodes, each with its text and in a second
/// column how many records it has.
class CDataTreeModel final : public QAbstractItemModel, private CTreeListener {
    Q_OBJECT

 public:
    enum Section { TextSection, CountSection, SectionCount };

    explicit CDataTreeModel(CDataTree& tree, QObject* parent = nullptr);
    ~CDataTreeModel() override;

    /// The node behind an index; the root for an invalid one.
    [[nodiscard]] const CTreeNode& NodeAt(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex IndexOf(const CTreeNode& node) const;
    [[nodiscard]] QModelIndex RootIndex() const { return index(0, 0, {}); }

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
    void BeforeReset() override { beginResetModel(); }
    void AfterReset() override { endResetModel(); }
    void BeforeInsert(const CTreeNode& parent, int row) override;
    void AfterInsert(const CTreeNode&) override { endInsertRows(); }
    void BeforeRemove(const CTreeNode& node) override;
    void AfterRemove(const CTreeNode&) override { endRemoveRows(); }
    void CountChanged(const CTreeNode& node) override;

    CDataTree& m_tree;
};
