#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;

/// How pictures of a report look on their medium: screen, print or file.
struct PictureStyle {
    QFont font;    ///< its size in pixels, which are units of 1/96 inch
    QColor paper;  ///< what the picture stands on
    QColor ink;    ///< texts and lines
};

/// A picture that stands on the page of a report above its first table with lines, on the screen, in print
/// and in a PDF alike. Lengths are units of 1/96 inch at a zoom of 100 per cent.
class CReportPicture {
 public:
    virtual ~CReportPicture() = default;
    /// How high it is at a width. 0: there is nothing to draw, and no place is taken.
    [[nodiscard]] virtual qreal HeightFor(qreal width, const PictureStyle& style) const = 0;
    virtual void Paint(QPainter& painter, const QRectF& place, const PictureStyle& style) const = 0;
    /// What lies under a point of the place, as plain text for a tool tip; empty where there is nothing.
    [[nodiscard]] virtual QString TipAt(const QPointF& point, const QRectF& place,
                                        const PictureStyle& style) const = 0;
    /// All that it shows in words, for screen readers.
    [[nodiscard]] virtual QString Description() const = 0;
};
