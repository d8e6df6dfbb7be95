#pragma once

#include <QStyledItemDelegate>

class COptionsModel;

/// Draws and edits the options: check boxes and radio buttons change with Space or a click anywhere on the
/// row, values have a combo box or a number field, entered with Space, F2 or a click.
class COptionsDelegate final : public QStyledItemDelegate {
    Q_OBJECT

 public:
    /// The view's model is a proxy of the model.
    COptionsDelegate(COptionsModel& model, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    /// What Space and a click do on a row; false where there is nothing to change.
    bool Act(const QModelIndex& index);

 Q_SIGNALS:
    /// Space or F2 was pressed on a row whose value has an editor, or the row was clicked.
    void EditWanted(const QModelIndex& valueIndex);

 protected:
    /// The wheel scrolls the tree, whatever editor is under it.
    [[nodiscard]] bool eventFilter(QObject* editor, QEvent* event) override;
    [[nodiscard]] bool editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) override;

 private:
    bool Edit(const QModelIndex& index);
    [[nodiscard]] QModelIndex Source(const QModelIndex& index) const;
    [[nodiscard]] int ValueWidth(const QFontMetrics& metrics) const;
    void PaintRadio(QPainter* painter, const QStyleOptionViewItem& item) const;
    void PaintArrow(QPainter* painter, const QStyleOptionViewItem& item) const;
    [[nodiscard]] QWidget* MakeChoice(QWidget* parent, const QModelIndex& source) const;
    [[nodiscard]] QWidget* MakeNumber(QWidget* parent, const QModelIndex& source) const;

    COptionsModel& m_model;
};
