#include "shell/report/CReportViewAccess.h"

#include "shell/report/CReportView.h"

#include <algorithm>

namespace {

std::uint32_t Position(int offset) {
    return static_cast<std::uint32_t>(std::max(0, offset));
}

}  // namespace

CReportViewAccess::CReportViewAccess(CReportView& view)
    : QAccessibleWidget(&view, QAccessible::Document), m_view(view) {}

void* CReportViewAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State CReportViewAccess::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    state.busy = !m_view.IsPrepared();
    return state;
}

QString CReportViewAccess::text(QAccessible::Text which) const {
    return which == QAccessible::Description ? m_view.Description() : QAccessibleWidget::text(which);
}

void CReportViewAccess::selection(int selectionIndex, int* startOffset, int* endOffset) const {
    const bool isThere = selectionIndex == 0 && m_view.HasSelection();
    *startOffset = isThere ? static_cast<int>(std::min(m_view.Anchor(), m_view.Cursor())) : 0;
    *endOffset = isThere ? static_cast<int>(std::max(m_view.Anchor(), m_view.Cursor())) : 0;
}

int CReportViewAccess::selectionCount() const {
    return m_view.HasSelection() ? 1 : 0;
}

void CReportViewAccess::addSelection(int startOffset, int endOffset) {
    setSelection(0, startOffset, endOffset);
}

void CReportViewAccess::removeSelection(int selectionIndex) {
    if (selectionIndex == 0) m_view.Select(m_view.Cursor(), m_view.Cursor());
}

void CReportViewAccess::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex == 0) m_view.Select(Position(startOffset), Position(endOffset));
}

int CReportViewAccess::cursorPosition() const {
    return static_cast<int>(m_view.Cursor());
}

void CReportViewAccess::setCursorPosition(int position) {
    m_view.Select(Position(position), Position(position));
    m_view.ScrollTo(m_view.Cursor());
}

QString CReportViewAccess::text(int startOffset, int endOffset) const {
    return m_view.Text().mid(startOffset, endOffset - startOffset);
}

int CReportViewAccess::characterCount() const {
    return static_cast<int>(m_view.Text().size());
}

QRect CReportViewAccess::characterRect(int offset) const {
    const QRect place = m_view.PlaceOf(Position(offset));
    const QRect next = m_view.PlaceOf(Position(offset) + 1);
    const int width = next.top() == place.top() ? std::max(0, next.left() - place.left()) : 0;
    return {m_view.viewport()->mapToGlobal(place.topLeft()), QSize(width, place.height())};
}

int CReportViewAccess::offsetAtPoint(const QPoint& point) const {
    return static_cast<int>(m_view.PositionUnder(m_view.viewport()->mapFromGlobal(point)));
}

void CReportViewAccess::scrollToSubstring(int startIndex, int) {
    m_view.ScrollTo(Position(startIndex));
}

QString CReportViewAccess::attributes(int offset, int* startOffset, int* endOffset) const {
    *startOffset = offset;
    *endOffset = characterCount();
    return {};
}
