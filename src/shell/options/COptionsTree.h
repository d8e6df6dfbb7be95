#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>

/// The tree of options on screen. The selected row has the editor of its value, if it has one, beside its
/// words; the keyboard gets there with Space, F2, Tab or a click. When another row is selected or the tree
/// scrolls, the editor hands its value over and goes. Screen readers find the rows as check boxes and radio
/// buttons, see COptionsTreeAccess, and hear when one of them changes.
class COptionsTree final : public QTreeView {
    Q_OBJECT

 public:
    explicit COptionsTree(QWidget* parent = nullptr);

    /// The keyboard goes to the editor of a row, which opens where it isn't open.
    void EnterEditor(const QModelIndex& valueIndex);
    /// Hands the value over and takes the editor away.
    void CloseEditor();

    /// The rows that aren't folded away, one below the other, by their first columns.
    [[nodiscard]] QModelIndexList Rows() const;
    /// The number by which Qt calls a cell when it tells screen readers of it: those of the header come
    /// first.
    [[nodiscard]] int NumberOf(const QModelIndex& cell) const;
    /// What Space does on a row: a check box changes, a radio button is marked, a value is edited.
    void Act(const QModelIndex& cell);

    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles) override;

 protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void verticalScrollbarValueChanged(int value) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    /// A digit goes to the number of the row, which is on screen already.
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void OpenEditor();

    QPersistentModelIndex m_edited;  ///< of the second column; invalid without an editor
};
