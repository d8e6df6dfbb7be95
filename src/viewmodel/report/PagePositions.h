#pragma once

#include <QPointF>
#include <QRectF>
#include <cstdint>
#include <optional>

class CPageLayout;
class CTextMeasure;
struct PageLine;

/// The position in the page's text that lies nearest to a point.
[[nodiscard]] std::uint32_t PositionAt(const CPageLayout& layout, CTextMeasure& measure,
                                       const QPointF& point);
/// The line that a position stands on, and where on it: a place without width. Nothing on a page without a
/// text.
struct PositionPlace {
    QRectF caret;
    std::uint32_t lineBegin = 0;
    std::uint32_t lineEnd = 0;
};
[[nodiscard]] std::optional<PositionPlace> PlaceOfPosition(const CPageLayout& layout, CTextMeasure& measure,
                                                           std::uint32_t position);
/// How far a position is from the left end of its line.
[[nodiscard]] double OffsetInLine(const CPageLayout& layout, CTextMeasure& measure, const PageLine& line,
                                  std::uint32_t position);
