#include "shell/CRecordLineDelegate.h"

#include "config/ColumnTable.h"
#include "config/Settings.h"
#include "records/CTRecord.h"
#include "shell/core/CRecordListModel.h"
#include "shell/core/CellText.h"

#include <QPainter>
#include <algorithm>

namespace {
/// Whose height a line takes. Without U and u, as it has always been measured.
const QString kSample = QStringLiteral("ABCDEFGHIJKLMNOPQRSTVWXYZabcdefghijklmnopqrstvwxyz");
}  // namespace

CRecordLineDelegate::CRecordLineDelegate(const Settings& settings, const CRecordListModel& model,
                                         const ActiveTimerSet& timers, QObject* parent)
    : CRecordDelegate(settings, parent), m_model(model), m_timers(timers) {}

int CRecordLineDelegate::RowHeight(const QFontMetrics& metrics) const {
    const int line = std::max(metrics.size(Qt::TextSingleLine, kSample).height(), kImage);
    return line * std::max(1, static_cast<int>(m_lines.size()));
}

std::vector<CRecordLineDelegate::Place> CRecordLineDelegate::PlacesIn(const QRect& row) const {
    std::vector<Place> places;
    const int height = row.height() / std::max(1, static_cast<int>(m_lines.size()));
    for (std::size_t line = 0; line < m_lines.size(); ++line) {
        const int top = row.top() + static_cast<int>(line) * height;
        for (const CellPlace& cell : PlaceCells(m_lines[line], row.left(), row.width(), kImage))
            places.push_back({QRect(cell.left, top, cell.width, height), cell,
                              LineColourNumber(static_cast<int>(line) + 1)});
    }
    return places;
}

void CRecordLineDelegate::PaintCell(QPainter& painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    const CTRecord* record = m_model.RecordAt(index.row());
    if (!record) return;
    for (const Place& place : PlacesIn(option.rect)) {
        if (place.cell.isImage) {
            PaintFlag(painter, place.rect, place.cell.column, FlagOf(*record, place.cell.column), option,
                      index.row());
            continue;
        }
        painter.setPen(Ink(option, place.lineColour));
        PaintText(painter, place.rect, TimeCellText(*record, place.cell.column, m_settings, m_timers),
                  Qt::AlignLeft | Qt::AlignVCenter, option.font);
    }
}

QString CRecordLineDelegate::TipAt(const QPoint& at, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    if (index.column() == 0) return CRecordDelegate::TipAt(at, option, index);
    const CTRecord* record = m_model.RecordAt(index.row());
    if (!record) return {};
    for (const Place& place : PlacesIn(option.rect)) {
        if (!place.rect.contains(at)) continue;
        if (place.cell.isImage) return FlagInWords(*record, place.cell.column);
        const QString text = TimeCellText(*record, place.cell.column, m_settings, m_timers);
        return QFontMetrics(option.font).horizontalAdvance(text.simplified()) > place.rect.width()
                   ? text
                   : QString();
    }
    return {};
}
