#pragma once

#include "shell/report/CReportPicture.h"

#include <functional>
#include <utility>

struct ChartModel;

/// The chart of a report on its page.
class CChartPicture final : public CReportPicture {
 public:
    /// Gives the chart that is shown at the moment; null: none.
    using Shown = std::function<const ChartModel*()>;
    explicit CChartPicture(Shown shown) : m_shown(std::move(shown)) {}

    [[nodiscard]] qreal HeightFor(qreal width, const PictureStyle& style) const override;
    void Paint(QPainter& painter, const QRectF& place, const PictureStyle& style) const override;
    [[nodiscard]] QString TipAt(const QPointF& point, const QRectF& place,
                                const PictureStyle& style) const override;
    [[nodiscard]] QString Description() const override;

 private:
    /// Null as well where the chart has no values.
    [[nodiscard]] const ChartModel* Chart() const;

    Shown m_shown;
};
