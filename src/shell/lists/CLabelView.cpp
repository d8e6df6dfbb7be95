#include "shell/lists/CLabelView.h"

#include "lang/FormatText.h"
#include "records/CVORec.h"
#include "shell/look/FormRows.h"
#include "shell/look/PlainTip.h"
#include "viewmodel/fields/CLabelModel.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace {

constexpr int kNameWidth = 130;

/// Default names are grey; the editor is a line that takes as many characters as an item of a list.
class NameDelegate final : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        auto* line = qobject_cast<QLineEdit*>(editor);
        if (!line) return editor;
        LimitLength(*line, kTextLength);
        line->setPlaceholderText(index.data().toString());
        const QString column = index.model()->headerData(index.column(), Qt::Horizontal).toString();
        const QString field = index.siblingAtColumn(CLabelModel::kField).data().toString();
        NameWidget(*line, QStringLiteral("nameEditor"), FormatText<Text::RecordInWords>(field, column));
        return editor;
    }
    /// A long name in full, as it was entered.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip || !index.isValid())
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        QToolTip::showText(event->globalPos(), PlainTip(index.data().toString()), view);
        return true;
    }

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!index.data(CLabelModel::kIsDefaultRole).toBool()) return;
        option->palette.setBrush(QPalette::Text, option->palette.placeholderText());
    }
};

}  // namespace

CLabelView::CLabelView(QAbstractItemModel& model, QWidget* parent) : QTableView(parent) {
    setModel(&model);
    setItemDelegate(new NameDelegate(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked | AnyKeyPressed);
    setTabKeyNavigation(false);  // Tab leaves the table; within an editor it goes on
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kFormSpace);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(AddEditAction(LoadText(Text::NamesEdit), QStringLiteral("editName"), Qt::Key_F2),
            &QAction::triggered, this, &CLabelView::Edit);
    connect(AddEditAction(LoadText(Text::NamesClear), QStringLiteral("clearName"), Qt::Key_Delete),
            &QAction::triggered, this, &CLabelView::Clear);
    selectionModel()->setCurrentIndex(model.index(0, CLabelModel::kName), QItemSelectionModel::NoUpdate);
}

QAction* CLabelView::AddEditAction(const QString& caption, const QString& name, Qt::Key key) {
    auto* action = new QAction(caption, this);
    action->setObjectName(name);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    addAction(action);
    return action;
}

QSize CLabelView::sizeHint() const {
    const int rows = verticalHeader()->length() + horizontalHeader()->sizeHint().height();
    return {CLabelModel::kColumns * kNameWidth + 2 * frameWidth(), rows + 2 * frameWidth()};
}

/// The name of the field that the cursor is on, or the one beside it.
QModelIndex CLabelView::CurrentName() const {
    const QModelIndex current = currentIndex();
    return current.column() == CLabelModel::kField ? current.siblingAtColumn(CLabelModel::kName) : current;
}

void CLabelView::Edit() {
    const QModelIndex name = CurrentName();
    if (!name.isValid()) return;
    setCurrentIndex(name);
    edit(name);
}

void CLabelView::Clear() {
    if (const QModelIndex name = CurrentName(); name.isValid()) model()->setData(name, QString());
}

/// Enter belongs to the table: it would press the default button of the dialog else, also from an editor.
void CLabelView::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || event->modifiers() & Qt::ControlModifier) return QTableView::keyPressEvent(event);
    if (state() != EditingState) Edit();
    event->accept();
}

void CLabelView::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (cell.isValid() && cell.column() == CLabelModel::kField && event->button() == Qt::LeftButton) Edit();
}

/// From one name to the next past the fields.
QModelIndex CLabelView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex to = QTableView::moveCursor(action, modifiers);
    if ((action != MoveNext && action != MovePrevious) || to.column() != CLabelModel::kField) return to;
    if (action == MoveNext) return to.siblingAtColumn(CLabelModel::kHeading);
    const int above = to.row() == 0 ? model()->rowCount() - 1 : to.row() - 1;
    return to.sibling(above, CLabelModel::kName);
}

/// The cursor is seen where it was left, and only in the table that has the keyboard.
void CLabelView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (currentIndex().isValid())
        selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
}

void CLabelView::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    const bool isElsewhere = event->reason() == Qt::TabFocusReason ||
                             event->reason() == Qt::BacktabFocusReason ||
                             event->reason() == Qt::MouseFocusReason;
    if (isElsewhere && !isAncestorOf(QApplication::focusWidget())) clearSelection();
}
