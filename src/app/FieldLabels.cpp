#include "app/FieldLabels.h"

#include "lang/LoadText.h"

#include <algorithm>

namespace {

struct DefaultLabelRow {
    int field;
    Text label;
};

/// 109 to 118 are fields of time records, 131 to 142 of expenses; the last two name columns alone.
constexpr DefaultLabelRow kDefaults[] = {
    {109, Text::FieldClient},
    {110, Text::FieldProject},
    {111, Text::LabelTimeItem3},
    {112, Text::FieldCostCentre},
    {113, Text::FieldRate},
    {114, Text::FieldCurrency},
    {115, Text::LabelAmount},
    {116, Text::FieldNotes},
    {117, Text::FieldBillable},
    {118, Text::FieldBilled},
    {131, Text::FieldClient},
    {132, Text::FieldProject},
    {133, Text::LabelDescription},
    {134, Text::FieldExpenseItem4},
    {135, Text::FieldCurrency},
    {136, Text::LabelAmount},
    {137, Text::FieldNotes},
    {138, Text::FieldBillable},
    {139, Text::FieldBilled},
    {141, Text::LabelFlag3},
    {142, Text::LabelFlag4},
    {140, Text::LabelFlag5},
    {146, Text::ColumnCaptionExported},
    {148, Text::ColumnCaptionExported},
};

}  // namespace

void FieldLabels::Clear() {
    m_labels.clear();
    m_isFilled = false;
}

QString FieldLabels::GetLabel(int field) const {
    const QString own = Own(field);
    return own.isEmpty() ? Default(field) : own;
}

QString FieldLabels::Default(int field) {
    const auto row = std::ranges::find(kDefaults, field, &DefaultLabelRow::field);
    return row == std::end(kDefaults) ? QString() : LoadText(row->label);
}
