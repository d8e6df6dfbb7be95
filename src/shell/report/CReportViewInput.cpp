// Selection, search, keys and mouse of the view.
#include "shell/report/CReportView.h"

#include "lang/LoadText.h"
#include "viewmodel/report/PageText.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

bool IsIn(const QPoint& point, const QWidget& widget) {
    return widget.rect().contains(point);
}

}  // namespace

// --- Selection

QString CReportView::SelectedText() const {
    return m_page ? CopiedText(*m_page, std::min(m_anchor, m_cursor), std::max(m_anchor, m_cursor))
                  : QString();
}

void CReportView::Copy() {
    if (HasSelection()) QApplication::clipboard()->setText(SelectedText());
}

void CReportView::SelectAll() {
    if (m_page) Select(0, static_cast<std::uint32_t>(m_page->text.size()));
}

void CReportView::Select(std::uint32_t begin, std::uint32_t end) {
    const auto size = static_cast<std::uint32_t>(m_page ? m_page->text.size() : 0);
    begin = std::min(begin, size);
    end = std::min(end, size);
    if (begin == m_anchor && end == m_cursor) return;
    m_anchor = begin;
    m_cursor = end;
    viewport()->update();
    QAccessibleTextSelectionEvent event(this, static_cast<int>(std::min(begin, end)),
                                        static_cast<int>(std::max(begin, end)));
    QAccessible::updateAccessibility(&event);
    Q_EMIT SelectionChanged();
}

void CReportView::MoveCursor(std::uint32_t position, bool extend) {
    Select(extend ? m_anchor : position, position);
    if (extend) ScrollTo(position);
}

FoundText CReportView::Find(const QString& text, const FindWay& way) {
    while (!m_page) static_cast<void>(Advance(1000));
    const FoundText found =
        m_search.Next(m_page->text, text, way, std::min(m_anchor, m_cursor), std::max(m_anchor, m_cursor));
    viewport()->update();
    if (found.number == 0) return found;
    const std::uint32_t begin = m_search.Places()[static_cast<std::size_t>(found.number - 1)];
    Select(begin, begin + m_search.Length());
    ScrollTo(begin);
    return found;
}

void CReportView::ClearFind() {
    m_search.Clear();
    viewport()->update();
}

// --- Keys

bool CReportView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto& key = static_cast<QKeyEvent&>(*event);
        const bool isOurs = key.matches(QKeySequence::Copy) || key.matches(QKeySequence::SelectAll);
        if (isOurs) event->accept();
        return true;
    }
    if (event->type() == QEvent::Show && m_scrollTo) BeginLayout();
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) viewport()->update();
    return QAbstractScrollArea::event(event);
}

void CReportView::keyPressEvent(QKeyEvent* event) {
    if (!CommandByKey(*event) && !SelectByKey(*event) && !ScrollByKey(*event))
        QAbstractScrollArea::keyPressEvent(event);
}

bool CReportView::CommandByKey(const QKeyEvent& event) {
    auto& key = const_cast<QKeyEvent&>(event);
    if (key.matches(QKeySequence::Copy))
        Copy();
    else if (key.matches(QKeySequence::SelectAll))
        SelectAll();
    else if (key.matches(QKeySequence::ZoomIn) ||
             (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Equal))
        ZoomIn();
    else if (key.matches(QKeySequence::ZoomOut))
        ZoomOut();
    else if (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_0)
        ZoomNormal();
    else
        return false;
    return true;
}

bool CReportView::ScrollByKey(const QKeyEvent& event) {
    const bool isBack = event.modifiers().testFlag(Qt::ShiftModifier);
    QScrollBar& bar = *verticalScrollBar();
    switch (event.key()) {
        case Qt::Key_Home:
            return bar.triggerAction(QAbstractSlider::SliderToMinimum), true;
        case Qt::Key_End:
            return bar.triggerAction(QAbstractSlider::SliderToMaximum), true;
        case Qt::Key_Space:
            return bar.triggerAction(isBack ? QAbstractSlider::SliderPageStepSub
                                            : QAbstractSlider::SliderPageStepAdd),
                   true;
        case Qt::Key_PageUp:
            return bar.triggerAction(QAbstractSlider::SliderPageStepSub), true;
        case Qt::Key_PageDown:
            return bar.triggerAction(QAbstractSlider::SliderPageStepAdd), true;
        default:
            return false;
    }
}

bool CReportView::SelectByKey(const QKeyEvent& event) {
    if (!event.modifiers().testFlag(Qt::ShiftModifier) || !m_layout) return false;
    const std::optional<std::uint32_t> position = PositionByKey(event);
    if (position) MoveCursor(*position, true);
    return position.has_value();
}

std::optional<std::uint32_t> CReportView::PositionByKey(const QKeyEvent& event) {
    const auto size = static_cast<std::uint32_t>(m_page->text.size());
    const QRect place = PlaceOf(m_cursor);
    const bool isFar = event.modifiers().testFlag(Qt::ControlModifier);
    const auto beside = [&](int lines) {
        return PositionUnder(place.center() + QPoint(0, lines * (place.height() + 4)));
    };
    switch (event.key()) {
        case Qt::Key_Left:
            return m_cursor - (m_cursor > 0 ? 1 : 0);
        case Qt::Key_Right:
            return std::min(size, m_cursor + 1);
        case Qt::Key_Up:
            return beside(-1);
        case Qt::Key_Down:
            return beside(1);
        case Qt::Key_PageUp:
            return PositionUnder(place.center() - QPoint(0, viewport()->height()));
        case Qt::Key_PageDown:
            return PositionUnder(place.center() + QPoint(0, viewport()->height()));
        case Qt::Key_Home:
            return isFar ? 0 : PositionUnder(QPoint(-horizontalScrollBar()->value(), place.center().y()));
        case Qt::Key_End:
            return isFar ? size
                         : PositionUnder(QPoint(horizontalScrollBar()->maximum() + viewport()->width(),
                                                place.center().y()));
        default:
            return std::nullopt;
    }
}

// --- Mouse

void CReportView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    MoveCursor(PositionUnder(event->pos()), event->modifiers().testFlag(Qt::ShiftModifier));
    m_isDragging = true;
}

void CReportView::mouseMoveEvent(QMouseEvent* event) {
    if (m_isDragging) DragTo(event->pos());
}

/// Outside of the view the page goes on scrolling, the faster the farther away the mouse is.
void CReportView::DragTo(const QPoint& viewportPoint) {
    const QRect seen = viewport()->rect();
    const QPoint inside(std::clamp(viewportPoint.x(), seen.left(), seen.right()),
                        std::clamp(viewportPoint.y(), seen.top(), seen.bottom()));
    if (IsIn(viewportPoint, *viewport()))
        m_dragger.stop();
    else if (!m_dragger.isActive())
        m_dragger.start();
    const QPoint beyond = viewportPoint - inside;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + beyond.y());
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + beyond.x());
    Select(m_anchor, PositionUnder(inside));
}

void CReportView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !std::exchange(m_isDragging, false)) return;
    m_dragger.stop();
    QClipboard& clipboard = *QApplication::clipboard();
    if (clipboard.supportsSelection() && HasSelection())
        clipboard.setText(SelectedText(), QClipboard::Selection);
}

void CReportView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_page) return;
    const TextRange word = WordAt(m_page->text, PositionUnder(event->pos()));
    Select(word.begin, word.end);
}

void CReportView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    constexpr int kStep = 120;
    m_wheel += event->angleDelta().y();
    for (; m_wheel >= kStep; m_wheel -= kStep) ZoomIn();
    for (; m_wheel <= -kStep; m_wheel += kStep) ZoomOut();
    event->accept();
}

void CReportView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    menu.setObjectName(u"reportMenu"_s);
    QAction* copy = menu.addAction(QIcon::fromTheme(u"edit-copy"_s), LoadText(Text::ReportViewCopy), this,
                                   &CReportView::Copy);
    copy->setShortcut(QKeySequence::Copy);
    copy->setEnabled(HasSelection());
    QAction* all = menu.addAction(QIcon::fromTheme(u"edit-select-all"_s), LoadText(Text::ReportViewSelectAll),
                                  this, &CReportView::SelectAll);
    all->setShortcut(QKeySequence::SelectAll);
    menu.exec(event->globalPos());
}
