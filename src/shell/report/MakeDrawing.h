#pragma once

#include "shell/report/CChartDrawing.h"

#include <memory>

/// The drawing for the form of a chart.
[[nodiscard]] std::unique_ptr<CChartDrawing> MakeDrawing(const ChartModel& model, const QRectF& place,
                                                         const PictureStyle& style);
