#pragma once

#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QRectF>
#include <QString>
#include <QTextItem>
#include <QWidget>

/// A text as it was drawn.
struct DrawnText {
    QString text;
    QRectF place;  ///< from the left end of the text, as high as its font
    QColor colour;
};

/// A line as it was drawn.
struct DrawnLine {
    QLineF line;
    QPen pen;
};

/// All that was drawn, in order.
struct Drawing {
    QList<DrawnText> texts;
    QList<DrawnLine> lines;
    QList<QPixmap> pictures;

    [[nodiscard]] QStringList Words() const {
        QStringList words;
        for (const DrawnText& drawn : texts) words.append(drawn.text);
        return words;
    }
};

/// Something to draw on that notes texts, lines and ready pictures, so that a test can read what a user
/// would. Grounds and what is drawn as a shape are left to tests that look at pixels.
class CDrawing final : public QPaintDevice {
 public:
    /// What a widget draws.
    [[nodiscard]] static Drawing Of(QWidget& widget) {
        CDrawing device(widget.size());
        widget.render(&device, {}, {}, {});
        return device.m_engine.drawing;
    }
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &m_engine; }

 private:
    explicit CDrawing(const QSize& size) : m_size(size) {}

    class Engine final : public QPaintEngine {
     public:
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap& picture, const QRectF&) override {
            drawing.pictures.append(picture);
        }
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        [[nodiscard]] Type type() const override { return User; }
        void drawLines(const QLineF* drawn, int count) override {
            for (int i = 0; i < count; ++i)
                drawing.lines.append({painter()->deviceTransform().map(drawn[i]), painter()->pen()});
        }
        void drawTextItem(const QPointF& baseline, const QTextItem& item) override {
            const QPointF left = painter()->deviceTransform().map(baseline);
            drawing.texts.append(
                {item.text(),
                 QRectF(left.x(), left.y() - item.ascent(), item.width(), item.ascent() + item.descent()),
                 painter()->pen().color()});
        }
        using QPaintEngine::drawLines;

        Drawing drawing;
    };
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
            case PdmWidth:
                return m_size.width();
            case PdmHeight:
                return m_size.height();
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return 96;
            case PdmDepth:
                return 32;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            default:
                return QPaintDevice::metric(metric);
        }
    }

    QSize m_size;
    mutable Engine m_engine;
};
