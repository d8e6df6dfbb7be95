#include "shell/list/CRecordDelegate.h"

#include "config/ColumnTable.h"
#include "config/Settings.h"
#include "shell/look/FlagGlyphs.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace {

bool IsSelected(const QStyleOptionViewItem& option) {
    return option.state.testFlag(QStyle::State_Selected);
}

bool HasFocus(const QStyleOptionViewItem& option) {
    return option.widget && option.widget->hasFocus();
}

struct StateRow {
    RowImage image;
    Glyph glyph;
};
constexpr StateRow kStates[] = {
    {RowImage::TimerRunning, Glyph::TimerRunning},
    {RowImage::TimerPaused, Glyph::TimerPaused},
    {RowImage::Expense, Glyph::Expense},
    {RowImage::DistanceEntry, Glyph::DistanceEntry},
};

Glyph StateGlyph(int image) {
    const auto* row = std::ranges::find(kStates, static_cast<RowImage>(image), &StateRow::image);
    return row == std::end(kStates) ? Glyph::Record : row->glyph;
}

/// Figures and colons only, as in "01:42:17": such a text must not tremble while it counts.
bool IsCount(const QString& text) {
    return text.size() > 5 &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit() || c == u':'; });
}

}  // namespace

CRecordDelegate::CRecordDelegate(const Settings& settings, QObject* parent)
    : QStyledItemDelegate(parent), m_settings(settings) {}

int CRecordDelegate::RowHeight(const QFontMetrics& metrics) const {
    const bool large = m_settings.listLayout == static_cast<int>(ListLayout::Icons);
    return std::max(metrics.height(), large ? kLargeImage : kImage) + 2 * kMargin;
}

void CRecordDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const int order = OrderOf(index);
    if (order < 0) return;  // the view draws it over all columns
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, Ground(option, order));
    if (index.column() == 0)
        PaintState(*painter, option, index);
    else
        PaintCell(*painter, option, index);
    PaintGridLine(*painter, option.rect);
    painter->restore();
}

int CRecordDelegate::OrderOf(const QModelIndex& index) {
    const QVariant order = index.data(CRecordListModel::OrderRole);
    return order.isValid() ? order.toInt() : index.row();
}

QColor CRecordDelegate::Ground(const QStyleOptionViewItem& option, int row) const {
    if (IsSelected(option)) return HasFocus(option) ? m_colours.highlight : m_colours.highlightNoFocus;
    return !IsPlain() && m_settings.alternateRows != 0 && IsAlternate(row) ? m_colours.alternate
                                                                           : m_colours.window;
}

QColor CRecordDelegate::Ink(const QStyleOptionViewItem& option, int lineColour) const {
    if (IsSelected(option))
        return HasFocus(option) ? m_colours.highlightText : m_colours.highlightTextNoFocus;
    return IsPlain() ? option.palette.color(QPalette::Text)
                     : m_colours.lines[static_cast<std::size_t>(lineColour - 1)];
}

bool CRecordDelegate::IsPlain() const {
    return m_settings.listLayout == static_cast<int>(ListLayout::Icons) ||
           m_settings.listLayout == static_cast<int>(ListLayout::List);
}

/// The check box stands at the row's left edge, the row's picture behind it.
void CRecordDelegate::PaintState(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const QColor ink = Ink(option, 1), paper = Ground(option, OrderOf(index));
    QRect place(option.rect.left(), option.rect.top(), kImage, option.rect.height());
    const Glyph check = IsSelected(option) ? Glyph::CheckSet : Glyph::CheckClear;
    Glyphs::Paint(painter, QRect(place.left(), place.center().y() - kImage / 2, kImage, kImage), check, ink,
                  paper);
    const bool large = m_settings.listLayout == static_cast<int>(ListLayout::Icons);
    const int size = large ? kLargeImage : kImage;
    const QRect state(place.right() + 1 + kGap, place.center().y() - size / 2, size, size);
    Glyphs::Paint(painter, state, StateGlyph(index.data(CRecordListModel::ImageRole).toInt()), ink, paper);
}

void CRecordDelegate::PaintCell(QPainter& painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const QVariant image = index.data(CRecordListModel::ImageRole);
    if (image.isValid()) {
        const int column = index.data(CRecordListModel::ColumnRole).toInt();
        const bool isSet = image.toInt() == static_cast<int>(RowImage::FlagSet);
        if (HasWord(index)) painter.fillRect(option.rect, m_colours.found);
        return PaintFlag(painter, option.rect, column, isSet, option, OrderOf(index));
    }
    painter.setPen(Ink(option, 1));
    const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    const QRect place = option.rect.adjusted(kMargin, 0, -kMargin, 0);
    if (HasWord(index))
        PaintSearched(painter, place, index.data().toString(), alignment, option);
    else
        PaintText(painter, place, index.data().toString(), alignment, option.font);
}

bool CRecordDelegate::HasWord(const QModelIndex& index) const {
    return !m_words.IsEmpty() && m_words.In(index.data(CRecordListModel::SearchedRole).toString()) != 0;
}

/// Behind the letters, in a colour of its own and with a line below, so that it isn't the colour alone.
void CRecordDelegate::PaintSearched(QPainter& painter, const QRect& place, const QString& text,
                                    Qt::Alignment alignment, const QStyleOptionViewItem& option) const {
    const QFontMetrics metrics(option.font);
    const QString line = metrics.elidedText(text.simplified(), Qt::ElideRight, place.width());
    const int height = metrics.height(), top = place.center().y() - height / 2;
    const bool isRight = alignment.testFlag(Qt::AlignRight);
    const int left = isRight ? place.right() + 1 - metrics.horizontalAdvance(line) : place.left();
    for (const WordMatcher::Place& found : m_words.PlacesIn(line)) {
        const int from = metrics.horizontalAdvance(line.left(found.at));
        const int to = metrics.horizontalAdvance(line.left(found.at + found.length));
        const QRect mark(left + from, top, to - from, height);
        if (!option.state.testFlag(QStyle::State_Selected)) painter.fillRect(mark, m_colours.found);
        painter.drawLine(mark.bottomLeft(), mark.bottomRight());
    }
    PaintText(painter, place, text, alignment, option.font);
}

void CRecordDelegate::PaintFlag(QPainter& painter, const QRect& place, int column, bool isSet,
                                const QStyleOptionViewItem& option, int row) const {
    QRect square(0, 0, kImage, kImage);
    square.moveCenter(place.center());
    Glyphs::Paint(painter, square, isSet ? FlagGlyph(column) : Glyph::FlagClear, Ink(option, 1),
                  Ground(option, row));
}

void CRecordDelegate::PaintText(QPainter& painter, const QRect& place, const QString& text,
                                Qt::Alignment alignment, const QFont& font) const {
    painter.setFont(font);
    const QFontMetrics metrics(font);
    constexpr int kFlags = Qt::TextSingleLine;
    int figure = 0;
    if (IsCount(text))
        for (char16_t c = u'0'; c <= u'9'; ++c)
            figure = std::max(figure, metrics.horizontalAdvance(QChar(c)));
    const int colon = metrics.horizontalAdvance(u':');
    int width = 0;
    for (const QChar c : text) width += c == u':' ? colon : figure;
    if (figure == 0 || width > place.width()) {
        // A line break inside a text would end it on one line.
        const QString line = metrics.elidedText(text.simplified(), Qt::ElideRight, place.width());
        painter.drawText(place, static_cast<int>(alignment) | kFlags, line);
        return;
    }
    QRect digit = place;
    if (alignment & Qt::AlignRight) digit.setLeft(place.right() + 1 - width);
    for (const QChar c : text) {
        digit.setWidth(c == u':' ? colon : figure);
        painter.drawText(digit, Qt::AlignHCenter | Qt::AlignVCenter | kFlags, QString(c));
        digit.moveLeft(digit.right() + 1);
    }
}

/// Along the bottom and in its whole width inside the row, or the next row would be painted over half of it.
/// Width 0 is the thinnest line that the screen has.
void CRecordDelegate::PaintGridLine(QPainter& painter, const QRect& row) const {
    if (IsPlain() || m_settings.gridLines == 0) return;
    QPen pen(m_colours.grid, 2.0 * m_settings.gridLineWidth);
    const int style = std::clamp(m_settings.gridLineStyle, 0, 4);
    pen.setStyle(static_cast<Qt::PenStyle>(style + static_cast<int>(Qt::SolidLine)));
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    const int y = row.bottom() + 1 - std::max(1, m_settings.gridLineWidth);
    painter.drawLine(row.left(), y, row.right() + 1, y);
}

bool CRecordDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isHead = index.isValid() && OrderOf(index) < 0;
    const QString tip = isHead ? index.siblingAtColumn(0).data(Qt::ToolTipRole).toString()
                               : TipAt(event->pos(), option, index);
    QToolTip::showText(event->globalPos(), tip.isEmpty() ? tip : tip.toHtmlEscaped(), view);
    return true;
}

QString CRecordDelegate::TipAt(const QPoint&, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    QString note = index.data(Qt::ToolTipRole).toString();
    if (index.column() == 0 || !note.isEmpty()) return note;
    QString inWords = index.data(Qt::AccessibleTextRole).toString();
    if (index.data(CRecordListModel::ImageRole).isValid()) return inWords;
    const int needed = QFontMetrics(option.font).horizontalAdvance(inWords) + 2 * kMargin;
    return needed > option.rect.width() ? inWords : QString();
}
