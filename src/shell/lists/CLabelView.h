#pragma once

#include <QTableView>

class QAction;

/// A table of names that are edited in their cells: a double click, F2, Enter or typing begins, Enter ends,
/// Tab goes on to the next name, Delete takes a name away. The column of fields leads to the name beside it.
class CLabelView final : public QTableView {
    Q_OBJECT

 public:
    /// The model must outlive the view.
    explicit CLabelView(QAbstractItemModel& model, QWidget* parent = nullptr);

    /// Wide enough for its columns and high enough for all rows.
    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    [[nodiscard]] QAction* AddEditAction(const QString& caption, const QString& name, Qt::Key key);
    void Edit();
    void Clear();
    [[nodiscard]] QModelIndex CurrentName() const;
};
