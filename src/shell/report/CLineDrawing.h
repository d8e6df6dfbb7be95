#pragma once

#include "shell/report/CChartDrawing.h"
#include "viewmodel/report/ChartAxis.h"

#include <vector>

class QPainterPath;

/// Lines over time, each with a dash and a marker of its own; several are named above them.
class CLineDrawing final : public CChartDrawing {
 public:
    CLineDrawing(const ChartModel& model, const QRectF& place, const PictureStyle& style);

    [[nodiscard]] qreal Height() const override;
    [[nodiscard]] QString TipAt(const QPointF& point) const override;

 protected:
    void PaintValues(QPainter& painter) const override;

 private:
    void PlaceNames();
    void LayOut();
    [[nodiscard]] QColor ColourOf(std::size_t line) const;
    [[nodiscard]] QPen PenOf(std::size_t line) const;
    [[nodiscard]] QPointF PointAt(std::size_t line, std::size_t label) const;
    [[nodiscard]] qreal XOf(std::size_t label) const;
    [[nodiscard]] qreal YOf(double number) const {
        return m_bottom - m_axis.Share(number) * (m_bottom - m_top);
    }
    void PaintNames(QPainter& painter) const;
    void PaintAxis(QPainter& painter) const;
    void PaintLabels(QPainter& painter) const;
    void PaintLine(QPainter& painter, std::size_t line) const;
    void PaintMarker(QPainter& painter, std::size_t line, const QPointF& centre) const;
    /// How many labels to go on for a stretch of the axis.
    [[nodiscard]] std::size_t LabelsIn(qreal width) const;
    [[nodiscard]] std::size_t LabelNear(qreal x) const;

    std::vector<QRectF> m_names;  ///< with a sample of the line in front
    qreal m_left = 0.0;           ///< of what the axes enclose
    qreal m_right = 0.0;
    qreal m_top = 0.0;
    qreal m_bottom = 0.0;
    ChartAxis m_axis;
};
