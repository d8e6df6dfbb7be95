#include "shell/report/CReportView.h"

#include "lang/FormatText.h"
#include "shell/look/PlainTip.h"
#include "shell/report/CPagePainter.h"
#include "shell/report/CReportPicture.h"
#include "viewmodel/report/PagePositions.h"
#include "viewmodel/report/PageWalk.h"

#include <QAccessible>
#include <QFontDatabase>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Nobody notices a window that stands still for so long, in milliseconds.
constexpr int kSlice = 25;
constexpr qsizetype kReadAtOnce = 100'000;
constexpr double kUnitsPerInch = 96;
/// A page is made no smaller than this to fit; where it still doesn't, words are cut.
constexpr double kSmallestFit = 0.5;
/// A page that takes longer says so.
constexpr int kPatience = 200;
constexpr int kSteps[] = {50, 67, 75, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};

}  // namespace

CReportView::CReportView(QWidget* parent) : QAbstractScrollArea(parent) {
    setObjectName(u"reportView"_s);
    setAccessibleName(LoadText(Text::ReportViewName));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    m_worker.setInterval(0);
    m_dragger.setInterval(50);
    connect(&m_worker, &QTimer::timeout, this, &CReportView::Work);
    connect(&m_dragger, &QTimer::timeout, this,
            [this] { DragTo(viewport()->mapFromGlobal(QCursor::pos())); });
    SetPage({});
}

CReportView::~CReportView() = default;

bool CReportView::CanShow() {
    return !QFontDatabase::families().isEmpty();
}

// --- From the page's text to its layout

void CReportView::SetPage(const QString& html) {
    m_nextLayout.reset();
    m_layout.reset();
    m_measures.reset();
    m_measure.reset();
    m_page.reset();
    m_isMeasured = false;
    m_search.Clear();
    m_scrollTo.reset();
    m_anchor = m_cursor = 0;
    m_reader = std::make_unique<CReportReader>(html);
    m_begun.start();
    UpdateScrollBars();
    m_worker.start();
    viewport()->update();
    Q_EMIT SelectionChanged();
}

void CReportView::Work() {
    if (Advance(kSlice))
        m_worker.stop();
    else if (!m_layout)
        viewport()->update();
}

bool CReportView::Advance(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    if (m_reader && !AdvanceReading(deadline)) return false;
    if (!m_isMeasured) {
        if (!m_measures->Advance(deadline)) return false;
        m_isMeasured = true;
        BeginLayout();
    }
    if (!m_nextLayout) return true;
    if (!m_nextLayout->Advance(deadline)) return false;
    ShowLayout();
    return m_nextLayout == nullptr;
}

bool CReportView::AdvanceReading(QDeadlineTimer deadline) {
    while (!m_reader->Advance(kReadAtOnce))
        if (deadline.hasExpired()) return false;
    m_page = m_reader->TakePage();
    m_reader.reset();
    m_measure = std::make_unique<CFontMeasure>(*m_page);
    m_measures = std::make_shared<CPageMeasures>(m_page, *m_measure);
    return true;
}

/// What is shown stays until the new layout is whole.
void CReportView::BeginLayout() {
    if (!m_isMeasured) return;
    const double base = BaseScale();
    const double width = std::max(1.0, viewport()->width() / base);
    double fit = 1;
    if (m_shrinks) fit = std::clamp(width / m_measures->LeastWidth(), kSmallestFit, 1.0);
    m_nextScale = base * fit;
    m_nextLayout = std::make_unique<CPageLayout>(
        CPageLayout::Parts{m_page, m_measures, *m_measure},
        m_shrinks ? width / fit : std::max(width, std::ceil(m_measures->NaturalWidth())),
        [this](double wide) { return PictureHeight(wide); });
    m_worker.start();
}

/// What stood at the top of the view stays there. A scroll bar that comes or goes changes the width: the next
/// layout follows then.
void CReportView::ShowLayout() {
    const QScopedValueRollback showing(m_isShowing, true);
    const bool isFirst = !m_layout;
    std::optional<std::uint32_t> top;
    if (!isFirst && verticalScrollBar()->value() > 0) top = PositionUnder(QPoint(0, 0));
    const int offset = top ? PlaceOf(*top).top() : 0;
    m_layout = std::move(m_nextLayout);
    m_scale = m_nextScale;
    UpdateScrollBars();
    if (top)
        if (const auto place = PlaceOfPosition(*m_layout, *m_measure, *top))
            verticalScrollBar()->setValue(static_cast<int>(place->caret.top() * m_scale) - offset);
    if (m_scrollTo && isVisible()) ScrollTo(*std::exchange(m_scrollTo, std::nullopt));
    viewport()->update();
    if (isFirst) Q_EMIT Prepared();
}

double CReportView::Progress() const {
    if (m_reader) return m_reader->Progress() / 2;
    if (m_measures && !m_isMeasured) return 0.5 + m_measures->Progress() / 4;
    return 0.75 + (m_nextLayout ? m_nextLayout->Progress() / 4 : 0.25);
}

QString CReportView::Text() const {
    return m_page ? m_page->text : QString();
}

PrintablePage CReportView::Printable() {
    constexpr int kUntilItIsThere = 1000;
    while (!m_isMeasured) static_cast<void>(Advance(kUntilItIsThere));
    return {m_page, m_measures, m_measure.get(), m_picture};
}

// --- Size and place

double CReportView::BaseScale() const {
    return logicalDpiX() / kUnitsPerInch * m_zoom / 100;
}

QPointF CReportView::Origin() const {
    return {-static_cast<double>(horizontalScrollBar()->value()),
            -static_cast<double>(verticalScrollBar()->value())};
}

QPointF CReportView::ToPage(const QPointF& viewportPoint) const {
    return (viewportPoint - Origin()) / m_scale;
}

void CReportView::UpdateScrollBars() {
    const double width = m_layout ? m_layout->Width() * m_scale : 0;
    const double height = m_layout ? m_layout->Height() * m_scale : 0;
    constexpr int kLine = 20;
    const auto set = [](QScrollBar& bar, double whole, int seen) {
        bar.setRange(0, std::max(0, static_cast<int>(std::floor(whole)) - seen));
        bar.setPageStep(std::max(1, seen - 2 * kLine));
        bar.setSingleStep(kLine);
    };
    set(*horizontalScrollBar(), width, viewport()->width());
    set(*verticalScrollBar(), height, viewport()->height());
}

void CReportView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollBars();
    const double width = viewport()->width() / BaseScale();
    if (m_layout && !m_nextLayout && m_shrinks && m_scale == BaseScale() && m_layout->Width() == width)
        return;
    BeginLayout();
    if (m_nextLayout && m_layout && !m_isShowing && Advance(kSlice)) m_worker.stop();
}

void CReportView::SetShrinkToFit(bool shrink) {
    if (m_shrinks == shrink) return;
    m_shrinks = shrink;
    BeginLayout();
}

void CReportView::SetPicture(const CReportPicture* picture) {
    m_picture = picture;
    BeginLayout();
}

void CReportView::UpdatePicture() {
    BeginLayout();
    viewport()->update();
}

double CReportView::PictureHeight(double width) const {
    return m_picture ? m_picture->HeightFor(width, PaperStyle(*m_page)) : 0;
}

void CReportView::SetZoom(int percent) {
    if (m_zoom == percent) return;
    m_zoom = percent;
    BeginLayout();
    Q_EMIT ZoomChanged(percent);
}

void CReportView::ZoomIn() {
    const int* step = std::ranges::upper_bound(kSteps, m_zoom);
    if (step != std::end(kSteps)) SetZoom(*step);
}

void CReportView::ZoomOut() {
    const int* step = std::ranges::lower_bound(kSteps, m_zoom);
    if (step != std::begin(kSteps)) SetZoom(*(step - 1));
}

void CReportView::ZoomNormal() {
    SetZoom(100);
}

std::uint32_t CReportView::PositionUnder(const QPoint& viewportPoint) {
    return m_layout ? PositionAt(*m_layout, *m_measure, ToPage(viewportPoint)) : 0;
}

QRect CReportView::PlaceOf(std::uint32_t position) {
    if (!m_layout) return {};
    const auto place = PlaceOfPosition(*m_layout, *m_measure, position);
    if (!place) return {};
    const QRectF caret(place->caret.topLeft() * m_scale + Origin(), place->caret.size() * m_scale);
    return caret.toAlignedRect();
}

void CReportView::ScrollTo(std::uint32_t position) {
    if (!m_layout || !isVisible()) {
        m_scrollTo = position;
        return;
    }
    const QRect place = PlaceOf(position);
    const auto bring = [](QScrollBar& bar, int begin, int end, int seen) {
        if (begin >= 0 && end <= seen) return;
        bar.setValue(bar.value() + (begin + end - seen) / 2);
    };
    bring(*verticalScrollBar(), place.top(), place.bottom(), viewport()->height());
    bring(*horizontalScrollBar(), place.left(), place.right(), viewport()->width());
}

// --- Painting

void CReportView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), Qt::white);
    if (m_layout)
        PaintPage(painter, event->rect());
    else if (m_begun.hasExpired(kPatience))
        PaintProgress(painter);
}

void CReportView::PaintPage(QPainter& painter, const QRect& part) {
    const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    CPagePainter::Page page{*m_layout, *m_measure, m_picture};
    page.marks = {.selectionBegin = std::min(m_anchor, m_cursor),
                  .selectionEnd = std::max(m_anchor, m_cursor),
                  .selection = palette().color(group, QPalette::Highlight),
                  .selectedText = palette().color(group, QPalette::HighlightedText),
                  .found = &m_search.Places(),
                  .foundLength = m_search.Length()};
    painter.translate(Origin());
    painter.scale(m_scale, m_scale);
    CPagePainter visitor(painter, page);
    WalkPage(*m_layout, QRectF(ToPage(part.topLeft()), QSizeF(part.size()) / m_scale), visitor);
}

void CReportView::PaintProgress(QPainter& painter) {
    painter.setPen(Qt::darkGray);
    const int percent = static_cast<int>(Progress() * 100);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, FormatText<Text::ReportPreparing>(percent));
}

// --- What it says of itself

QString CReportView::Description() const {
    if (!m_page) return {};
    const auto lines = static_cast<int>(m_page->text.isEmpty() ? 0 : m_page->text.count(u'\n') + 1);
    const QString length = FormatText<Text::ReportPageRows>(lines);
    return m_picture ? m_picture->Description() + u"\n"_s + length : length;
}

QString CReportView::TipUnder(const QPoint& viewportPoint) const {
    if (!m_layout || !m_picture) return {};
    const QPointF point = ToPage(viewportPoint);
    for (const CPageLayout::Item& item : m_layout->Items()) {
        const QRectF place(m_layout->Left(), item.top, m_layout->ContentWidth(), item.height);
        if (item.isPicture && place.contains(point))
            return m_picture->TipAt(point, place, PaperStyle(*m_page));
    }
    return {};
}

bool CReportView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QString tip = TipUnder(help.pos());
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help.globalPos(), PlainTip(tip), viewport());
    return true;
}
