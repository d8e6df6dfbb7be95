#include "shell/report/CChartPicture.h"

#include "shell/report/MakeDrawing.h"
#include "viewmodel/report/ChartModel.h"

const ChartModel* CChartPicture::Chart() const {
    const ChartModel* chart = m_shown();
    return chart && !chart->IsEmpty() ? chart : nullptr;
}

qreal CChartPicture::HeightFor(qreal width, const PictureStyle& style) const {
    const ChartModel* chart = Chart();
    return chart ? MakeDrawing(*chart, {0.0, 0.0, width, 0.0}, style)->Height() : 0.0;
}

void CChartPicture::Paint(QPainter& painter, const QRectF& place, const PictureStyle& style) const {
    if (const ChartModel* chart = Chart()) MakeDrawing(*chart, place, style)->Paint(painter);
}

QString CChartPicture::TipAt(const QPointF& point, const QRectF& place, const PictureStyle& style) const {
    const ChartModel* chart = Chart();
    return chart ? MakeDrawing(*chart, place, style)->TipAt(point) : QString();
}

QString CChartPicture::Description() const {
    const ChartModel* chart = Chart();
    return chart ? chart->Description() : QString();
}
