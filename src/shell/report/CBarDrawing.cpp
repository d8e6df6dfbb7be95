#include "shell/report/CBarDrawing.h"

#include "viewmodel/report/ChartModel.h"

#include <QPainter>
#include <algorithm>

namespace {

/// Labels take no more of the width than this.
constexpr double kMostLabels = 0.33;
/// Of the height of a row.
constexpr double kThickness = 0.62;
constexpr int kMostTicks = 8;

}  // namespace

CBarDrawing::CBarDrawing(const ChartModel& model, const QRectF& place, const PictureStyle& style)
    : CChartDrawing(model, place, style) {
    LayOut();
}

void CBarDrawing::LayOut() {
    for (const QString& label : Model().labels) m_labelWidth = std::max(m_labelWidth, WidthOf(label));
    m_labelWidth = std::min(m_labelWidth, kMostLabels * Place().width());
    for (const ChartValue& value : Model().series.front().values)
        m_valueWidth = std::max(m_valueWidth, WidthOf(value.text));
    const ChartRange range = Model().Range();
    const qreal beside = m_valueWidth + 0.4 * Em();
    m_left = Place().left() + m_labelWidth + 0.6 * Em() + (range.low < 0 ? beside : 0.0);
    m_right = std::max(Place().right() - beside, m_left + 2 * Em());
    m_axis = MakeAxis(range.low, range.high, MostTicks(range), Model().places);
}

int CBarDrawing::MostTicks(const ChartRange& range) const {
    const qreal text =
        std::max(WidthOf(Model().NumberText(range.low)), WidthOf(Model().NumberText(range.high)));
    return std::clamp(static_cast<int>((m_right - m_left) / (text + 1.5 * Em())), 2, kMostTicks);
}

qreal CBarDrawing::Bottom() const {
    return BelowTitle() + RowHeight() * static_cast<qreal>(Model().labels.size());
}

qreal CBarDrawing::Height() const {
    return Bottom() - Place().top() + 2.2 * Em();
}

QRectF CBarDrawing::BarAt(qsizetype row) const {
    const double number = Model().series.front().values[static_cast<std::size_t>(row)].number;
    const qreal zero = XOf(0.0), end = std::clamp(XOf(number), m_left, m_right);
    const qreal height = kThickness * RowHeight();
    const qreal top = BelowTitle() + RowHeight() * static_cast<qreal>(row) + (RowHeight() - height) / 2;
    return {std::min(zero, end), top, std::abs(end - zero), height};
}

QColor CBarDrawing::ColourAt(qsizetype row) const {
    const bool isOther = Model().hasOtherBar && row + 1 == Model().labels.size();
    if (isOther) return Colours().other;
    const double number = Model().series.front().values[static_cast<std::size_t>(row)].number;
    return number < 0 ? Colours().below : Colours().lines.front();
}

void CBarDrawing::PaintAxis(QPainter& painter) const {
    for (const double tick : m_axis.Ticks()) {
        const qreal x = XOf(tick);
        painter.setPen(QPen(tick == 0.0 ? Colours().zero : Colours().grid, 1.0));
        painter.drawLine(QPointF(x, BelowTitle()), QPointF(x, Bottom()));
        const QString text = Model().NumberText(tick);
        const qreal half = WidthOf(text) / 2 + 1.0;
        PaintText(painter, {x - half, Bottom() + 0.2 * Em(), 2 * half, Em()}, Qt::AlignHCenter, text);
    }
}

/// Two slanting gaps: the bar goes on.
void CBarDrawing::PaintBreak(QPainter& painter, const QRectF& bar) const {
    const qreal slant = bar.height() / 3;
    painter.setPen(QPen(Style().paper, 0.2 * Em()));
    for (const qreal x : {bar.center().x() - slant, bar.center().x() + slant})
        painter.drawLine(QPointF(x - slant, bar.bottom() + 1), QPointF(x + slant, bar.top() - 1));
}

void CBarDrawing::PaintRow(QPainter& painter, qsizetype row) const {
    const ChartValue& value = Model().series.front().values[static_cast<std::size_t>(row)];
    const QRectF bar = BarAt(row);
    const QRectF label(Place().left(), bar.top(), m_labelWidth, bar.height());
    PaintText(painter, label, Qt::AlignRight | Qt::AlignVCenter, Model().labels[row]);
    painter.fillRect(bar, ColourAt(row));
    if (value.number < m_axis.Low() || value.number > m_axis.High()) PaintBreak(painter, bar);
    const qreal width = WidthOf(value.text) + 1.0;
    const qreal left = value.number < 0 ? bar.left() - 0.3 * Em() - width : bar.right() + 0.3 * Em();
    PaintText(painter, {left, bar.top(), width, bar.height()}, Qt::AlignLeft | Qt::AlignVCenter, value.text);
}

void CBarDrawing::PaintValues(QPainter& painter) const {
    PaintAxis(painter);
    for (qsizetype row = 0; row < Model().labels.size(); ++row) PaintRow(painter, row);
}

QString CBarDrawing::TipAt(const QPointF& point) const {
    if (!Place().contains(point) || point.y() < BelowTitle() || point.y() >= Bottom()) return {};
    const auto row = static_cast<qsizetype>((point.y() - BelowTitle()) / RowHeight());
    return Model().TextOf(0, std::min(row, Model().labels.size() - 1));
}
