#pragma once

#include "shell/report/CReportPicture.h"
#include "shell/report/ChartColours.h"

#include <QFontMetricsF>
#include <QRectF>
#include <QString>

class QPainter;
struct ChartModel;

/// A chart laid out in a place: draws it, and knows what lies where. It lives no longer than its chart.
class CChartDrawing {
 public:
    CChartDrawing(const ChartModel& model, const QRectF& place, const PictureStyle& style);
    virtual ~CChartDrawing() = default;
    CChartDrawing(const CChartDrawing&) = delete;
    CChartDrawing& operator=(const CChartDrawing&) = delete;

    /// How high the place has to be.
    [[nodiscard]] virtual qreal Height() const = 0;
    void Paint(QPainter& painter) const;
    /// The value under a point in words; empty where there is none.
    [[nodiscard]] virtual QString TipAt(const QPointF& point) const = 0;

 protected:
    virtual void PaintValues(QPainter& painter) const = 0;

    [[nodiscard]] const ChartModel& Model() const { return m_model; }
    [[nodiscard]] const QRectF& Place() const { return m_place; }
    [[nodiscard]] const PictureStyle& Style() const { return m_style; }
    [[nodiscard]] const ChartColours& Colours() const { return m_colours; }
    /// The height of a line of text, by which all is measured.
    [[nodiscard]] qreal Em() const { return m_metrics.height(); }
    /// Where the title ends.
    [[nodiscard]] qreal BelowTitle() const;
    [[nodiscard]] qreal WidthOf(const QString& text) const;
    /// One line of text, with dots at its end where it is too long for its place.
    void PaintText(QPainter& painter, const QRectF& place, Qt::Alignment alignment,
                   const QString& text) const;

 private:
    const ChartModel& m_model;
    const QRectF m_place;
    const PictureStyle& m_style;
    const ChartColours m_colours;
    const QFontMetricsF m_metrics;
};
