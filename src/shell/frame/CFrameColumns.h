#pragma once

#include <vector>

struct FrameContext;
class CColSet;
class QPoint;
enum class ColumnHalf;

/// The commands on the columns of the record list, and what the user does to its header. What is changed is
/// saved at once.
class CFrameColumns {
 public:
    explicit CFrameColumns(const FrameContext& context);

    void Sort();
    void EditColumns();
    /// All columns lose the width that the user gave them.
    void FitAll();
    /// Columns, order, breaks and widths of the mode as at first.
    void Restore();

 private:
    /// column: Column::kNone where there is none under the pointer.
    void ShowMenu(const QPoint& at, int column);
    void Fit(int column);
    void Show(int column, bool isShown);
    void Move(const std::vector<int>& columns);
    template <class Change>
    void Apply(Change change);

    const FrameContext& m_context;
};
