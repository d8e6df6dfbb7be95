#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>

/// The tree of options on screen. The selected row has the editor of its value, if it has one, beside its
/// words; the keyboard gets there with Space, F2, Tab or a click. When another row is selected or the tree
/// scrolls, the editor hands its value over and goes.
class COptionsTree final : public QTreeView {
    Q_OBJECT

 public:
    explicit COptionsTree(QWidget* parent = nullptr);

    /// The keyboard goes to the editor of a row, which opens where it isn't open.
    void EnterEditor(const QModelIndex& valueIndex);
    /// Hands the value over and takes the editor away.
    void CloseEditor();

 protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void verticalScrollbarValueChanged(int value) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
    void OpenEditor();

    QPersistentModelIndex m_edited;  ///< of the second column; invalid without an editor
};
