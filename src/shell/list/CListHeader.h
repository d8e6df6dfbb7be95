#pragma once

#include "viewmodel/list/ColumnFit.h"

#include <QHash>
#include <QObject>
#include <utility>
#include <vector>

class CCfgStore;
class CRecordListModel;
class QHeaderView;
class QTableView;

/// The header of the record list and the widths of its columns. A width that the user has chosen stays; the
/// others are measured over what is shown and share the room that there is.
class CListHeader final : public QObject {
    Q_OBJECT

 public:
    CListHeader(QTableView& view, CRecordListModel& model, CCfgStore& settings);

    /// Header, columns and sort mark as layout, font and settings say.
    void Apply();
    /// Widths that differ from those last set go to the settings.
    void Capture();
    /// The room has changed.
    void Fit();
    /// The columns are measured anew.
    void Forget() { m_measured.clear(); }

 Q_SIGNALS:
    /// The user has let go of a column's edge.
    void Resized();
    /// A double click on a column's edge.
    void FitWanted(int column);
    /// The user has dragged a column to another place. columns: all that are shown, in their new order.
    void Moved(const std::vector<int>& columns);
    /// column: under the pointer, Column::kNone where there is none.
    void MenuWanted(const QPoint& globalPosition, int column);

 protected:
    /// Sees where the user lets go of the header.
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] QHeaderView& Header() const;
    [[nodiscard]] int ColumnOf(int section) const;
    void SetWidth(int section, int width);
    [[nodiscard]] bool IsAutomatic(int column) const;
    [[nodiscard]] ColumnNeed NeedOf(int column) const;
    [[nodiscard]] int CaptionWidth(int column, bool hasMark) const;
    [[nodiscard]] int CountWidth() const;
    void Measure();
    [[nodiscard]] bool MeasureRow(int row);
    void FollowRows(int first, int last);
    void EndDrag();
    void TakeMove();
    [[nodiscard]] bool TakeWidths();

    QTableView& m_view;
    CRecordListModel& m_model;
    CCfgStore& m_settings;
    /// Column and width of each section, as they were last set here. The state is no column.
    std::vector<std::pair<int, int>> m_applied;
    /// What the texts of a column need, of all that were measured since Forget: it only grows, so that the
    /// columns don't jump from one period to the next.
    QHash<int, int> m_measured;
    QString m_measuredFont;
};
