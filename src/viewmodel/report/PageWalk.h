#pragma once

#include "viewmodel/report/ReportPage.h"

#include <QRectF>

class CPageLayout;
struct PageLine;

/// Is called with what stands on a page: what is behind before what is in front of it. Places are those of
/// the layout.
class CPageVisitor {
 public:
    virtual ~CPageVisitor() = default;
    virtual void OnLine(const PageLine& line, const QPointF& place) = 0;
    virtual void OnCell(const PageTable& table, const QRectF& place, PageColour background) = 0;
    virtual void OnRule(const QRectF& place) = 0;
    virtual void OnPicture(const QRectF& place) = 0;
};

/// Visits what touches a part of the page.
void WalkPage(const CPageLayout& layout, const QRectF& part, CPageVisitor& visitor);
/// Visits one row of an outermost table.
void WalkRow(const CPageLayout& layout, std::size_t item, std::uint32_t row, CPageVisitor& visitor);
