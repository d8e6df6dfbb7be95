#pragma once

class CVORec;

/// What commands ask of the data tree's pane.
class CTreeControl {
 public:
    virtual ~CTreeControl() = default;
    [[nodiscard]] virtual bool IsShown() const = 0;
    virtual void Show(bool isShown) = 0;
    /// Whether the tree stands above the list and not beside it.
    [[nodiscard]] virtual bool IsStacked() const = 0;
    virtual void Stack(bool isStacked) = 0;
    /// Whether a node other than the root is selected.
    [[nodiscard]] virtual bool HasNode() const = 0;
    /// Whether the selected node has nodes beneath it.
    [[nodiscard]] virtual bool CanExpand() const = 0;
    /// Opens or closes the selected node and all beneath it; tells the user to select one when none is.
    virtual void ExpandAll() = 0;
    /// Each level of the selection fills its field; false for the root.
    [[nodiscard]] virtual bool FillRecord(CVORec& record) const = 0;
    /// Whether a level of the selection is of this column.
    [[nodiscard]] virtual bool Says(int column) const = 0;
};
