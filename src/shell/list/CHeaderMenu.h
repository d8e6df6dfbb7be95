#pragma once

#include "config/ColumnTable.h"

#include <QList>
#include <QMenu>

class CColSet;

/// The menu of the list's header: the column under the pointer, which columns are shown, and the commands on
/// all of them.
class CHeaderMenu final : public QMenu {
    Q_OBJECT

 public:
    /// column: Column::kNone where there is none under the pointer.
    CHeaderMenu(const CColSet& columns, ColumnHalf half, int column, const QList<QAction*>& commands,
                QWidget* parent);

 Q_SIGNALS:
    void FitWanted(int column);
    void ShowWanted(int column, bool isShown);

 private:
    void AddColumn(int column, bool isLastShown);
    void AddShown(const CColSet& columns, ColumnHalf half);
};
