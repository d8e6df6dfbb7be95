#pragma once

#include "shell/list/CRecordDelegate.h"
#include "viewmodel/list/LineLayout.h"

#include <vector>

class CRecordListModel;

/// Draws a record over several lines of equal height, each with its share of the visible columns. The first
/// record, the third and so on have the second ground: the other way round than in the layout of columns.
class CRecordLineDelegate final : public CRecordDelegate {
    Q_OBJECT

 public:
    CRecordLineDelegate(const Settings& settings, const CRecordListModel& model, QObject* parent = nullptr);

    /// The lines after a change of the columns.
    void SetLines(std::vector<ListLine> lines) { m_lines = std::move(lines); }
    /// The height of the sample text, at least 16, for each line.
    [[nodiscard]] int RowHeight(const QFontMetrics& metrics) const override;

 protected:
    void PaintCell(QPainter& painter, const QStyleOptionViewItem& option,
                   const QModelIndex& index) const override;
    [[nodiscard]] QString TipAt(const QPoint& at, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const override;
    [[nodiscard]] bool IsAlternate(int row) const override { return row % 2 == 0; }

 private:
    struct Place {
        QRect rect;
        CellPlace cell;
        int lineColour;
    };
    [[nodiscard]] std::vector<Place> PlacesIn(const QRect& row) const;

    const CRecordListModel& m_model;
    std::vector<ListLine> m_lines;
};
