#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>

class COptionsTree;

/// The tree of options for screen readers. Qt's own finds cells of a table whose only action is to be
/// selected; here the rows are what they look like, and can be toggled.
class COptionsTreeAccess final : public QAccessibleWidget {
 public:
    explicit COptionsTreeAccess(COptionsTree& tree);
    ~COptionsTreeAccess() override;

    /// Numbered as by COptionsTree::NumberOf. The header is hidden, so there is nothing under its numbers.
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int number) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

 private:
    [[nodiscard]] QAccessibleInterface* AccessTo(const QModelIndex& cell) const;
    void ForgetWhatIsGone() const;

    COptionsTree& m_tree;
    mutable QHash<QPersistentModelIndex, QAccessible::Id> m_known;
};
