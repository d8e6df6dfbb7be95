#pragma once

#include <QAccessible>
#include <QPersistentModelIndex>
#include <QPointer>

class COptionsTree;

/// A cell of the tree of options for screen readers: a check box, a radio button, a group, or a value.
class COptionAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
    COptionAccess(COptionsTree& tree, const QModelIndex& cell);

    [[nodiscard]] QModelIndex Cell() const { return m_cell; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
    [[nodiscard]] bool IsCheckable() const;
    [[nodiscard]] bool IsRadio() const;
    [[nodiscard]] bool IsEditable() const;

    QPointer<COptionsTree> m_tree;
    QPersistentModelIndex m_cell;
};
