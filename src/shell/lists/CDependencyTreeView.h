#pragma once

#include "app/DependencyTree.h"

#include <QPersistentModelIndex>
#include <QStringList>
#include <QTimer>
#include <QTreeView>
#include <vector>

class CDependencyModel;

/// The edited tree of dependencies on screen. What is open and selected outlives a look into the store.
class CDependencyTreeView final : public QTreeView {
    Q_OBJECT

 public:
    using Node = DependencyTree::Node;
    explicit CDependencyTreeView(CDependencyModel& model, QWidget* parent = nullptr);

    /// Null without a selection.
    [[nodiscard]] Node* Selected() const;
    /// Opens a node, and keeps it in sight.
    void Open(const Node& node);
    [[nodiscard]] bool IsOpen() const;
    /// Closes the selected line and all below it where it is open, else opens them all.
    void ToggleBelow();

 Q_SIGNALS:
    /// Another line is selected, or none.
    void SelectionMoved();
    /// A line is open now, or closed.
    void OpenChanged();

 protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    /// A closed line opens while something is held over it. Qt's own way to do that closes open ones, too.
    void dragMoveEvent(QDragMoveEvent* event) override;

 private:
    void RememberOpen();
    void Reopen();
    void CloseBelow(const QModelIndex& line);

    CDependencyModel& m_model;
    std::vector<QStringList> m_open;  ///< paths of nodes that are gone and may come back
    QStringList m_selected;
    QPersistentModelIndex m_heldOver;
    QTimer m_openDelay;
};
