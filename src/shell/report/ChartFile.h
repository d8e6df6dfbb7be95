#pragma once

#include <QByteArray>

struct ChartModel;
struct FileOutcome;
class QString;

/// A chart by itself on white paper, at the width of a page. None for one without values.
[[nodiscard]] QByteArray ChartAsSvg(const ChartModel& chart);
/// The same at twice the number of pixels.
[[nodiscard]] QByteArray ChartAsPng(const ChartModel& chart);
/// Writes it under just that name: as PNG where it ends with .png, else as SVG.
[[nodiscard]] FileOutcome SaveChart(const ChartModel& chart, const QString& path);
