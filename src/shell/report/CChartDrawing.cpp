#include "shell/report/CChartDrawing.h"

#include "shell/report/ChartText.h"
#include "viewmodel/report/ChartModel.h"

#include <QPainter>

namespace {

QFont Strong(QFont font) {
    font.setBold(true);
    return font;
}

}  // namespace

CChartDrawing::CChartDrawing(const ChartModel& model, const QRectF& place, const PictureStyle& style)
    : m_model(model),
      m_place(place),
      m_style(style),
      m_colours(MakeChartColours(style.paper, style.ink)),
      m_metrics(style.font) {}

qreal CChartDrawing::BelowTitle() const {
    return m_place.top() + 1.6 * Em();
}

qreal CChartDrawing::WidthOf(const QString& text) const {
    return m_metrics.horizontalAdvance(LineOfText(text));
}

void CChartDrawing::PaintText(QPainter& painter, const QRectF& place, Qt::Alignment alignment,
                              const QString& text) const {
    painter.setPen(m_colours.ink);
    painter.drawText(place, static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextDontClip,
                     m_metrics.elidedText(LineOfText(text), Qt::ElideRight, place.width()));
}

void CChartDrawing::Paint(QPainter& painter) const {
    painter.save();
    // Lines and bars that lie straight are sharp as they are.
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QFont strong = Strong(m_style.font);
    const QRectF title(m_place.left(), m_place.top(), m_place.width(), 1.2 * Em());
    painter.setFont(strong);
    painter.setPen(m_colours.ink);
    painter.drawText(
        title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
        QFontMetricsF(strong).elidedText(LineOfText(m_model.title), Qt::ElideRight, title.width()));
    painter.setFont(m_style.font);
    PaintValues(painter);
    painter.restore();
}
