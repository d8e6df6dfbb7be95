#pragma once

#include "app/Hints.h"
#include "viewmodel/tree/CDataTree.h"

#include <QList>
#include <QStringList>
#include <QTreeView>

class CCfgStore;
class CDataTreeModel;
class CPrompt;
class CVelmarchDoc;
class CVORec;

/// The data tree on screen. Selecting a node narrows the record list to the records under it; the tree itself
/// stays as it is then. The node whose records the list shows is the selected one, whatever changes the list.
/// What is open outlives a rebuild.
class CDataTreeView final : public QTreeView {
    Q_OBJECT

 public:
    CDataTreeView(CVelmarchDoc& document, const CCfgStore& settings, CPrompt& prompt,
                  QWidget* parent = nullptr);

    void OnHint(Hint hint, const QStringList& ids);
    /// Whether a node other than the root is selected.
    [[nodiscard]] bool HasNode() const;
    [[nodiscard]] bool CanExpand() const;
    /// Opens or closes the selected node and each below it, children before the next sibling. The user is
    /// told to select one when none is.
    void ExpandAll();
    /// Each level of the selection fills its field; false for the root.
    [[nodiscard]] bool FillRecord(CVORec& record) const;
    /// Whether a level of the selection is of this column.
    [[nodiscard]] bool Says(int column) const;

 Q_SIGNALS:
    void MenuWanted(const QPoint& globalPosition);

 protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// A node that is selected without the cursor, as a screen reader does it, gets the cursor.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    /// Where no node has the cursor the root gets it, which nobody has chosen: the list stays as it is.
    void focusInEvent(QFocusEvent* event) override;

 private:
    void ChooseSelected();
    void Follow();
    void RememberOpen();
    void NoteOpen(const QModelIndex& parent, int first, int last);
    void Reopen();
    void ToggleBelow(const QModelIndex& index);
    [[nodiscard]] QModelIndex Selected() const;

    const CCfgStore& m_settings;
    CPrompt& m_prompt;
    CDataTree m_tree;
    CDataTreeModel* m_model;
    bool m_isFollowing = false;  ///< the cursor moves, and nobody has chosen where to
    QList<QStringList> m_open;   ///< paths of open nodes that are gone and may come back
};
