#include "shell/list/CRecordLineDelegate.h"

#include "config/Settings.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QPainter>
#include <algorithm>

namespace {
/// Whose height a line takes. Without U and u, as it has always been measured.
const QString kSample = QStringLiteral("ABCDEFGHIJKLMNOPQRSTVWXYZabcdefghijklmnopqrstvwxyz");
}  // namespace

CRecordLineDelegate::CRecordLineDelegate(const Settings& settings, const CRecordListModel& model,
                                         QObject* parent)
    : CRecordDelegate(settings, parent), m_model(model) {}

int CRecordLineDelegate::RowHeight(const QFontMetrics& metrics) const {
    const int line = std::max(metrics.size(Qt::TextSingleLine, kSample).height(), kImage);
    return line * std::max(1, static_cast<int>(m_lines.size()));
}

std::vector<CRecordLineDelegate::Place> CRecordLineDelegate::PlacesIn(const QRect& row) const {
    std::vector<Place> places;
    const int height = row.height() / std::max(1, static_cast<int>(m_lines.size()));
    const LineGrid grid = GridOf(m_lines);
    const auto cellsOf = [&](const ListLine& line) {
        return m_settings.linesOnGrid ? PlaceCellsOnGrid(line, grid, row.left(), row.width(), kImage)
                                      : PlaceCells(line, row.left(), row.width(), kImage);
    };
    for (std::size_t line = 0; line < m_lines.size(); ++line) {
        const int top = row.top() + static_cast<int>(line) * height;
        for (const CellPlace& cell : cellsOf(m_lines[line]))
            places.push_back({QRect(cell.left, top, cell.width, height), cell,
                              LineColourNumber(static_cast<int>(line) + 1)});
    }
    return places;
}

void CRecordLineDelegate::PaintCell(QPainter& painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    constexpr Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
    const int row = index.data(CRecordListModel::ListRowRole).toInt();
    for (const Place& place : PlacesIn(option.rect)) {
        if (place.cell.isImage) {
            PaintFlag(painter, place.rect, place.cell.column, m_model.IsFlagSet(row, place.cell.column),
                      option, OrderOf(index));
            continue;
        }
        painter.setPen(Ink(option, place.lineColour));
        const QString text = m_model.TextOf(row, place.cell.column);
        if (m_words.In(m_model.SearchedTextOf(row, place.cell.column)) != 0)
            PaintSearched(painter, place.rect, text, kLeft, option);
        else
            PaintText(painter, place.rect, text, kLeft, option.font);
    }
}

QString CRecordLineDelegate::TipAt(const QPoint& at, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
    if (index.column() == 0) return CRecordDelegate::TipAt(at, option, index);
    const int row = index.data(CRecordListModel::ListRowRole).toInt();
    for (const Place& place : PlacesIn(option.rect)) {
        if (!place.rect.contains(at)) continue;
        if (place.cell.isImage) return m_model.FlagInWordsOf(row, place.cell.column);
        if (QString note = m_model.NoteOf(row, place.cell.column); !note.isEmpty()) return note;
        const QString text = m_model.TextOf(row, place.cell.column);
        return QFontMetrics(option.font).horizontalAdvance(text.simplified()) > place.rect.width()
                   ? text
                   : QString();
    }
    return {};
}
