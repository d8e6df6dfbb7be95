#pragma once

#include "viewmodel/tree/CTreeControl.h"

#include <QSplitter>

class CDataTreeView;

/// The two panes of the window: the data tree, beside or above the record list. The tree can be hidden; in a
/// window that is too narrow for both it is hidden until it is asked for.
class CPanes final : public QSplitter, public CTreeControl {
    Q_OBJECT

 public:
    CPanes(CDataTreeView& tree, QWidget& list, QWidget* parent = nullptr);

    [[nodiscard]] bool IsShown() const override;
    void Show(bool isShown) override;
    [[nodiscard]] bool IsStacked() const override { return orientation() == Qt::Vertical; }
    void Stack(bool isStacked) override;
    [[nodiscard]] bool HasNode() const override;
    [[nodiscard]] bool CanExpand() const override;
    void ExpandAll() override;
    [[nodiscard]] bool FillRecord(CVORec& record) const override;
    [[nodiscard]] bool Says(int column) const override;

    /// Whether the tree is wanted, in a narrow window too: what is kept for the next start.
    [[nodiscard]] bool IsWanted() const { return m_use.isWanted; }
    struct TreeUse {
        bool isWanted = true;
        bool isInsisted = false;  ///< the user asked for the tree in a narrow window
    };
    [[nodiscard]] TreeUse GetTreeUse() const { return m_use; }
    /// As it was, whatever the window's width was meanwhile.
    void RestoreTreeUse(const TreeUse& use);
    /// The keyboard goes to the other pane.
    void NextPane();

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void Follow();

    CDataTreeView& m_tree;
    QWidget& m_list;
    TreeUse m_use;
};
