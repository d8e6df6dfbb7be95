#include "shell/options/COptionsDelegate.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"
#include "shell/options/COptionsModel.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPainter>
#include <QSortFilterProxyModel>
#include <QSpinBox>

namespace {

const QStyle& StyleOf(const QStyleOptionViewItem& item) {
    return item.widget ? *item.widget->style() : *QApplication::style();
}

/// On a dark ground the style would draw the outlines of boxes and buttons in a colour as dark as the ground.
void LightenOutlines(QPalette& palette) {
    if (palette.base().color().lightness() < 128)
        palette.setBrush(QPalette::Window, palette.placeholderText());
}

int KeyOf(const QEvent& event) {
    return event.type() == QEvent::KeyPress ? static_cast<const QKeyEvent&>(event).key() : 0;
}

bool IsSpace(const QEvent& event) {
    return KeyOf(event) == Qt::Key_Space || KeyOf(event) == Qt::Key_Select;
}

bool IsClick(const QEvent& event) {
    return event.type() == QEvent::MouseButtonRelease &&
           static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
}

}  // namespace

COptionsDelegate::COptionsDelegate(COptionsModel& model, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model) {}

QModelIndex COptionsDelegate::Source(const QModelIndex& index) const {
    return qobject_cast<const QSortFilterProxyModel*>(index.model())->mapToSource(index);
}

/// All values are as wide as the widest of them with its arrow.
int COptionsDelegate::ValueWidth(const QFontMetrics& metrics) const {
    int width = 0;
    for (const OptionRow& row : OptionRows())
        if (row.kind == OptionKind::Choice)
            for (const ValueChoice& choice : row.choices)
                width = qMax(width, metrics.horizontalAdvance(LoadText(choice.text)));
    return width + 2 * metrics.height() + kFormSpace;
}

QSize COptionsDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    // Every row is high enough for its editor, so that nothing moves when one opens.
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(qMax(size.height(), option.fontMetrics.height() + kFormSpace));
    if (index.column() == 1) size.setWidth(ValueWidth(option.fontMetrics));
    return size;
}

void COptionsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    if (index.data(COptionsModel::RadioRole).isValid()) {
        PaintRadio(painter, item);
        return;
    }
    QStyleOptionViewItem outlined = option;
    LightenOutlines(outlined.palette);
    QStyledItemDelegate::paint(painter, outlined, index);
    if (index.column() != 1) return;
    const OptionRow* row = m_model.RowOf(Source(index));
    if (row && row->kind == OptionKind::Choice) PaintArrow(painter, item);
}

/// The item without its check box, and a radio button in the place of a picture.
void COptionsDelegate::PaintRadio(QPainter* painter, const QStyleOptionViewItem& item) const {
    const QStyle& style = StyleOf(item);
    QStyleOptionViewItem plain = item;
    plain.features &= ~QStyleOptionViewItem::ViewItemFeatures(QStyleOptionViewItem::HasCheckIndicator);
    plain.features |= QStyleOptionViewItem::HasDecoration;
    plain.decorationSize = {style.pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, &item, item.widget),
                            style.pixelMetric(QStyle::PM_ExclusiveIndicatorHeight, &item, item.widget)};
    style.drawControl(QStyle::CE_ItemViewItem, &plain, painter, item.widget);
    QStyleOptionButton button;
    button.QStyleOption::operator=(item);
    LightenOutlines(button.palette);
    button.rect = style.subElementRect(QStyle::SE_ItemViewItemDecoration, &plain, item.widget);
    button.state &= ~QStyle::State_HasFocus;
    button.state |= item.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    style.drawPrimitive(QStyle::PE_IndicatorRadioButton, &button, painter, item.widget);
}

/// The sign that a value opens a choice.
void COptionsDelegate::PaintArrow(QPainter* painter, const QStyleOptionViewItem& item) const {
    QStyleOption arrow;
    arrow.QStyleOption::operator=(item);
    const int side = item.fontMetrics.height() * 2 / 3;
    arrow.rect = QStyle::alignedRect(item.direction, Qt::AlignRight | Qt::AlignVCenter, {side, side},
                                     item.rect.adjusted(0, 0, -kFormSpace / 2, 0));
    StyleOf(item).drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, item.widget);
}

bool COptionsDelegate::eventFilter(QObject* editor, QEvent* event) {
    if (event->type() != QEvent::Wheel) return QStyledItemDelegate::eventFilter(editor, event);
    event->ignore();
    return true;
}

bool COptionsDelegate::editorEvent(QEvent* event, QAbstractItemModel*, const QStyleOptionViewItem&,
                                   const QModelIndex& index) {
    if (IsSpace(*event) || IsClick(*event)) return Act(index);
    return KeyOf(*event) == Qt::Key_F2 && Edit(index);
}

bool COptionsDelegate::Act(const QModelIndex& index) {
    return m_model.Toggle(Source(index)) || Edit(index);
}

bool COptionsDelegate::Edit(const QModelIndex& index) {
    const QModelIndex value = index.siblingAtColumn(1);
    if (!(value.flags() & Qt::ItemIsEditable)) return false;
    Q_EMIT EditWanted(value);
    return true;
}

QWidget* COptionsDelegate::MakeChoice(QWidget* parent, const QModelIndex& source) const {
    auto* box = new QComboBox(parent);
    for (const ValueChoice& choice : m_model.RowOf(source)->choices)
        box->addItem(LoadText(choice.text), choice.value);
    auto* self = const_cast<COptionsDelegate*>(this);
    connect(box, &QComboBox::activated, self, [self, box] { Q_EMIT self->commitData(box); });
    return box;
}

QWidget* COptionsDelegate::MakeNumber(QWidget* parent, const QModelIndex& source) const {
    const SettingRow* setting = FindSetting(QString::fromLatin1(m_model.RowOf(source)->setting));
    auto* box = new QSpinBox(parent);
    box->setRange(static_cast<int>(setting->least), static_cast<int>(setting->greatest));
    return box;
}

QWidget* COptionsDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const {
    const QModelIndex source = Source(index);
    const OptionRow* row = m_model.RowOf(source);
    QWidget* editor =
        row->kind == OptionKind::Number ? MakeNumber(parent, source) : MakeChoice(parent, source);
    NameWidget(*editor, QString::fromLatin1(row->setting), LoadText(row->text));
    return editor;
}

void COptionsDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const std::int64_t value = m_model.ValueOf(Source(index));
    if (auto* number = qobject_cast<QSpinBox*>(editor)) number->setValue(static_cast<int>(value));
    if (auto* choice = qobject_cast<QComboBox*>(editor))
        choice->setCurrentIndex(choice->findData(static_cast<int>(value)));
}

void COptionsDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    if (auto* number = qobject_cast<QSpinBox*>(editor)) m_model.SetValue(Source(index), number->value());
    auto* choice = qobject_cast<QComboBox*>(editor);
    // With nothing chosen the stored number stays, even one that is no choice.
    if (choice && choice->currentIndex() >= 0)
        m_model.SetValue(Source(index), choice->currentData().toLongLong());
}
