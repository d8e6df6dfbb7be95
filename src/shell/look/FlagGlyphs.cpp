#include "shell/look/FlagGlyphs.h"

#include "fields/Column.h"

#include <algorithm>
#include <iterator>

namespace {

struct FlagRow {
    int column;
    Glyph glyph;
};
constexpr FlagRow kFlags[] = {
    {Column::kBillable, Glyph::Billable},
    {Column::kBilled, Glyph::Billed},
    {Column::kExported, Glyph::Exported},
    {Column::kNotes, Glyph::Notes},
    {Column::kIsDistance, Glyph::DistanceEntry},
    {Column::kFlag1, Glyph::Billable},
    {Column::kFlag2, Glyph::Billed},
    {Column::kFlag3, Glyph::Reimbursable},
    {Column::kFlag4, Glyph::Reimbursed},
    {Column::kFlag5, Glyph::Personal},
    {Column::kExpenseNotes, Glyph::Notes},
    {Column::kExpenseExported, Glyph::Exported},
};

}  // namespace

Glyph FlagGlyph(int column) {
    const auto* row = std::ranges::find(kFlags, column, &FlagRow::column);
    return row == std::end(kFlags) ? Glyph::Billable : row->glyph;
}
