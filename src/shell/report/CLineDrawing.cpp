#include "shell/report/CLineDrawing.h"

#include "viewmodel/report/ChartModel.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// In lines of text.
constexpr double kPlotHeight = 13.0;
constexpr double kSampleWidth = 2.6;
constexpr double kMarkerSize = 0.22;
constexpr double kLineWidth = 1.8;
constexpr int kMostTicks = 8;
/// A name in the row above the lines takes no more of the width than this.
constexpr double kMostName = 0.3;

constexpr std::array kDashes{Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                             Qt::DashDotLine, Qt::DashDotDotLine, Qt::SolidLine};

/// A circle, a square, a diamond, a triangle up, one down, and a cross for the others.
QPainterPath MarkerOf(std::size_t line, qreal size) {
    static const std::array<QPolygonF, 5> kCorners{{
        QPolygonF({{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}),
        QPolygonF({{0, -1.3}, {1.3, 0}, {0, 1.3}, {-1.3, 0}}),
        QPolygonF({{0, -1.2}, {1.2, 1}, {-1.2, 1}}),
        QPolygonF({{0, 1.2}, {1.2, -1}, {-1.2, -1}}),
        QPolygonF({{-1.3, -0.4},
                   {-0.4, -0.4},
                   {-0.4, -1.3},
                   {0.4, -1.3},
                   {0.4, -0.4},
                   {1.3, -0.4},
                   {1.3, 0.4},
                   {0.4, 0.4},
                   {0.4, 1.3},
                   {-0.4, 1.3},
                   {-0.4, 0.4},
                   {-1.3, 0.4}}),
    }};
    QPainterPath marker;
    if (line == 0) {
        marker.addEllipse(QPointF(), size, size);
    } else {
        marker.addPolygon(QTransform::fromScale(size, size).map(kCorners.at(line - 1)));
        marker.closeSubpath();
    }
    return marker;
}

}  // namespace

CLineDrawing::CLineDrawing(const ChartModel& model, const QRectF& place, const PictureStyle& style)
    : CChartDrawing(model, place, style) {
    PlaceNames();
    LayOut();
}

/// From left to right, in as many rows as they need. One line alone is named by the title.
void CLineDrawing::PlaceNames() {
    m_top = BelowTitle() + 0.3 * Em();
    if (Model().series.size() < 2) return;
    QPointF corner(Place().left(), m_top);
    for (const ChartSeries& series : Model().series) {
        const qreal name = std::min(WidthOf(series.name) + 1.0, kMostName * Place().width());
        const qreal width = kSampleWidth * Em() + name;
        if (corner.x() > Place().left() && corner.x() + width > Place().right())
            corner = {Place().left(), corner.y() + 1.4 * Em()};
        m_names.emplace_back(corner, QSizeF(width, Em()));
        corner.rx() += width + 1.2 * Em();
    }
    m_top = corner.y() + 1.8 * Em();
}

void CLineDrawing::LayOut() {
    m_bottom = m_top + kPlotHeight * Em();
    const ChartRange range = Model().Range();
    m_axis = MakeAxis(range.low, range.high, kMostTicks, Model().places);
    qreal text = 0.0;
    for (const double tick : m_axis.Ticks()) text = std::max(text, WidthOf(Model().NumberText(tick)));
    m_left = Place().left() + text + 0.8 * Em();
    const qreal half = WidthOf(Model().labels.back()) / 2;
    m_right = std::max(Place().right() - half - 1.0, m_left + 2 * Em());
}

qreal CLineDrawing::Height() const {
    return m_bottom - Place().top() + 2.4 * Em();
}

QColor CLineDrawing::ColourOf(std::size_t line) const {
    return Model().series[line].isOther ? Colours().other : Colours().lines.at(line);
}

QPen CLineDrawing::PenOf(std::size_t line) const {
    QPen pen(ColourOf(line), kLineWidth, kDashes.at(line), Qt::RoundCap, Qt::RoundJoin);
    if (pen.style() != Qt::SolidLine) pen.setCapStyle(Qt::FlatCap);
    return pen;
}

qreal CLineDrawing::XOf(std::size_t label) const {
    const auto last = static_cast<qreal>(Model().labels.size() - 1);
    return m_left + static_cast<qreal>(label) / last * (m_right - m_left);
}

QPointF CLineDrawing::PointAt(std::size_t line, std::size_t label) const {
    return {XOf(label), YOf(Model().series[line].values[label].number)};
}

std::size_t CLineDrawing::LabelsIn(qreal width) const {
    const qreal apart = XOf(1) - XOf(0);
    return static_cast<std::size_t>(std::max(1.0, std::ceil(width / apart)));
}

std::size_t CLineDrawing::LabelNear(qreal x) const {
    const auto last = static_cast<qreal>(Model().labels.size() - 1);
    const qreal near = std::round((x - m_left) / (m_right - m_left) * last);
    return static_cast<std::size_t>(std::clamp(near, 0.0, last));
}

void CLineDrawing::PaintNames(QPainter& painter) const {
    for (std::size_t line = 0; line < m_names.size(); ++line) {
        const QRectF& place = m_names[line];
        const qreal y = place.center().y(), sample = (kSampleWidth - 0.4) * Em();
        painter.setPen(PenOf(line));
        painter.drawLine(QPointF(place.left(), y), QPointF(place.left() + sample, y));
        PaintMarker(painter, line, {place.left() + sample / 2, y});
        PaintText(painter, place.adjusted(kSampleWidth * Em(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                  Model().series[line].name);
    }
}

void CLineDrawing::PaintAxis(QPainter& painter) const {
    for (const double tick : m_axis.Ticks()) {
        const qreal y = YOf(tick);
        painter.setPen(QPen(tick == 0.0 ? Colours().zero : Colours().grid, 1.0));
        painter.drawLine(QPointF(m_left, y), QPointF(m_right, y));
        const QRectF text(Place().left(), y - Em() / 2, m_left - Place().left() - 0.5 * Em(), Em());
        PaintText(painter, text, Qt::AlignRight | Qt::AlignVCenter, Model().NumberText(tick));
    }
}

/// As many dates as have place beside one another.
void CLineDrawing::PaintLabels(QPainter& painter) const {
    const qreal width = WidthOf(Model().labels.back()) + 1.5 * Em();
    for (std::size_t label = 0; label < static_cast<std::size_t>(Model().labels.size());
         label += LabelsIn(width)) {
        painter.setPen(QPen(Colours().zero, 1.0));
        painter.drawLine(QPointF(XOf(label), m_bottom), QPointF(XOf(label), m_bottom + 0.25 * Em()));
        PaintText(painter, {XOf(label) - width / 2, m_bottom + 0.55 * Em(), width, Em()}, Qt::AlignHCenter,
                  Model().labels[static_cast<qsizetype>(label)]);
    }
}

void CLineDrawing::PaintMarker(QPainter& painter, std::size_t line, const QPointF& centre) const {
    const std::size_t marker = Model().series[line].isOther ? Colours().lines.size() : line;
    painter.fillPath(MarkerOf(marker, kMarkerSize * Em()).translated(centre), ColourOf(line));
}

void CLineDrawing::PaintLine(QPainter& painter, std::size_t line) const {
    const auto count = static_cast<std::size_t>(Model().labels.size());
    QPolygonF points;
    for (std::size_t label = 0; label < count; ++label) points.append(PointAt(line, label));
    painter.setPen(PenOf(line));
    painter.drawPolyline(points);
    // Where points lie close, a marker now and then tells the lines apart; a line alone needs none.
    const std::size_t step = LabelsIn(1.6 * Em());
    if (step > 1 && m_names.empty()) return;
    for (std::size_t label = 0; label < count; label += step)
        PaintMarker(painter, line, PointAt(line, label));
}

void CLineDrawing::PaintValues(QPainter& painter) const {
    PaintAxis(painter);
    PaintLabels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintNames(painter);
    for (std::size_t line = Model().series.size(); line-- > 0;) PaintLine(painter, line);
}

QString CLineDrawing::TipAt(const QPointF& point) const {
    const QRectF lines(m_left - Em(), m_top - Em(), m_right - m_left + 2 * Em(), m_bottom - m_top + 2 * Em());
    if (!Place().contains(point) || !lines.contains(point)) return {};
    const std::size_t label = LabelNear(point.x());
    std::size_t nearest = 0;
    const auto distance = [&](std::size_t line) { return std::abs(PointAt(line, label).y() - point.y()); };
    for (std::size_t line = 1; line < Model().series.size(); ++line)
        if (distance(line) < distance(nearest)) nearest = line;
    return Model().TextOf(nearest, static_cast<qsizetype>(label));
}
