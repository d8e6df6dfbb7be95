#include "shell/report/ChartFile.h"

#include "lang/LoadText.h"
#include "platform/host/SafeFile.h"
#include "shell/report/MakeDrawing.h"
#include "viewmodel/report/ChartModel.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

/// In units of 1/96 inch, as on a page.
constexpr int kWidth = 800;
constexpr int kMargin = 16;
constexpr int kTextPixels = 13;
constexpr int kPixelsPerUnit = 2;
constexpr int kUnitsPerInch = 96;
constexpr double kMetresPerInch = 0.0254;

PictureStyle FileStyle() {
    QFont font = QGuiApplication::font();
    font.setPixelSize(kTextPixels);
    return {.font = font, .paper = Qt::white, .ink = Qt::black};
}

QSize SizeOf(const ChartModel& chart, const PictureStyle& style) {
    const qreal height = MakeDrawing(chart, {0, 0, kWidth - 2.0 * kMargin, 0}, style)->Height();
    return {kWidth, static_cast<int>(std::ceil(height)) + 2 * kMargin};
}

void PaintOn(QPaintDevice& device, const ChartModel& chart, const QSize& size, const PictureStyle& style) {
    QPainter painter(&device);
    const QRectF all(QPointF(), size);
    painter.fillRect(all, style.paper);
    MakeDrawing(chart, all.adjusted(kMargin, kMargin, -kMargin, -kMargin), style)->Paint(painter);
}

}  // namespace

QByteArray ChartAsSvg(const ChartModel& chart) {
    if (chart.IsEmpty()) return {};
    const PictureStyle style = FileStyle();
    const QSize size = SizeOf(chart, style);
    QBuffer bytes;
    QSvgGenerator svg;
    svg.setOutputDevice(&bytes);
    svg.setResolution(kUnitsPerInch);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(), size));
    // A word of ours: the generator writes what it is given here without masking what is markup in it.
    svg.setTitle(LoadText(Text::ChartName));
    PaintOn(svg, chart, size, style);
    return bytes.data();
}

QByteArray ChartAsPng(const ChartModel& chart) {
    if (chart.IsEmpty()) return {};
    const PictureStyle style = FileStyle();
    const QSize size = SizeOf(chart, style);
    QImage picture(size * kPixelsPerUnit, QImage::Format_RGB32);
    picture.setDevicePixelRatio(kPixelsPerUnit);
    PaintOn(picture, chart, size, style);
    const int dotsPerMetre = static_cast<int>(std::lround(kPixelsPerUnit * kUnitsPerInch / kMetresPerInch));
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    QBuffer bytes;
    return picture.save(&bytes, "PNG") ? bytes.data() : QByteArray();
}

FileOutcome SaveChart(const ChartModel& chart, const QString& path) {
    const bool isPng = path.endsWith(u".png"_s, Qt::CaseInsensitive);
    return WriteWholeFile(path, isPng ? ChartAsPng(chart) : ChartAsSvg(chart), FileAudience::UserDefault);
}
