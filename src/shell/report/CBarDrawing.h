#pragma once

#include "shell/report/CChartDrawing.h"
#include "viewmodel/report/ChartAxis.h"

struct ChartRange;

/// Bars that lie, one below the other: what a group is called to the left, its sum in words at the end. Bars
/// below 0 go to the left of a line at 0.
class CBarDrawing final : public CChartDrawing {
 public:
    CBarDrawing(const ChartModel& model, const QRectF& place, const PictureStyle& style);

    [[nodiscard]] qreal Height() const override;
    [[nodiscard]] QString TipAt(const QPointF& point) const override;

 protected:
    void PaintValues(QPainter& painter) const override;

 private:
    void LayOut();
    [[nodiscard]] int MostTicks(const ChartRange& range) const;
    [[nodiscard]] qreal RowHeight() const { return 1.45 * Em(); }
    [[nodiscard]] qreal Bottom() const;
    [[nodiscard]] qreal XOf(double number) const {
        return m_left + m_axis.Share(number) * (m_right - m_left);
    }
    [[nodiscard]] QRectF BarAt(qsizetype row) const;
    [[nodiscard]] QColor ColourAt(qsizetype row) const;
    void PaintAxis(QPainter& painter) const;
    void PaintBreak(QPainter& painter, const QRectF& bar) const;
    void PaintRow(QPainter& painter, qsizetype row) const;

    qreal m_labelWidth = 0.0;
    qreal m_valueWidth = 0.0;
    qreal m_left = 0.0;  ///< of the axis
    qreal m_right = 0.0;
    ChartAxis m_axis;
};
