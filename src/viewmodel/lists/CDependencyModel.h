#pragma once

#include "lists/CDependencyEditor.h"
#include "lists/CDependencyListener.h"

#include <QAbstractItemModel>
#include <QHash>
#include <functional>
#include <vector>

/// The edited tree of dependencies for a view: one line for the root, below it the nodes. Lines can be
/// dragged under other ones, and candidates dropped where they fit. Where a line stands is looked up in
/// constant time.
class CDependencyModel final : public QAbstractItemModel, private CDependencyListener {
    Q_OBJECT

 public:
    using Node = DependencyTree::Node;
    /// What a list is called.
    using Caption = std::function<QString(int list)>;

    CDependencyModel(CDependencyEditor& editor, Caption caption, QObject* parent = nullptr);
    ~CDependencyModel() override;

    /// The node behind an index; the root for an invalid one.
    [[nodiscard]] Node& NodeAt(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex IndexOf(const Node& node) const;
    [[nodiscard]] QModelIndex RootIndex() const { return index(0, 0, {}); }
    /// The identities of the items on the way to a node, and the node that they lead to; null for none.
    [[nodiscard]] QStringList PathOf(const Node& node) const;
    [[nodiscard]] Node* NodeOf(const QStringList& path) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex&) const override { return 1; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    /// A place between two lines is a place under their parent, which sorts its children.
    [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                       const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

 private:
    using Children = std::vector<const Node*>;
    struct Place {
        const Node* parent;
        int row;
    };
    void BeforeReset() override;
    void AfterReset() override { endResetModel(); }
    void BeforeAdd(const Node& under) override { static_cast<void>(ChildrenOf(under)); }
    void AfterAdd(const Node& under) override;
    void BeforeRemove(const Node& node) override;
    void AfterRemove() override;
    void BeforeMove(const Node& node, const Node& to) override;
    void AfterMove(const Node& node) override;
    void AfterRename() override;

    [[nodiscard]] Children& ChildrenOf(const Node& node) const;
    [[nodiscard]] Place PlaceOf(const Node& node) const;
    void Number(const Node& parent, std::size_t from) const;
    void PutInOrder(const std::vector<const Node*>& parents);
    void Forget(const Node& branch);
    [[nodiscard]] QString InWords(const Node& node) const;

    CDependencyEditor& m_editor;
    Caption m_caption;
    // What views were told. While a change is announced the tree is further than that.
    mutable QHash<const Node*, Children> m_children;
    mutable QHash<const Node*, Place> m_places;
    Place m_removed{nullptr, 0};
};
