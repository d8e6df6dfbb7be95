#include "lists/LabelSets.h"

#include "app/CPulldownCatalogue.h"
#include "app/ListTable.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <map>

namespace {

using enum Text;

constexpr LabelRow kTimeRows[] = {
    {RowClient, 99, 109},     {RowProject, 100, 110},  {RowActivity, 101, 111}, {RowCostCentre, 102, 112},
    {RowRate, 103, 113},      {RowCurrency, 104, 114}, {RowAmount, 105, 115},   {TreeNotes, 106, 116},
    {TreeBillable, 107, 117}, {TreeBilled, 108, 118},
};

constexpr LabelRow kExpenseRows[] = {
    {RowClient, 119, 131},   {RowProject, 120, 132}, {RowDescription, 121, 133}, {RowPayment, 122, 134},
    {RowCurrency, 123, 135}, {RowAmount, 124, 136},  {TreeNotes, 125, 137},      {TreeBillable, 126, 138},
    {TreeBilled, 127, 139},  {TreeFlag3, 129, 141},  {TreeFlag4, 130, 142},      {TreeFlag5, 128, 140},
};

constexpr RecordMode kTime = RecordMode::Time;
constexpr RecordMode kExpense = RecordMode::Expense;

/// One name of a ready-made set.
struct LabelPresetRow {
    int preset;  ///< 1 or 2
    RecordMode mode;
    Text firstText, secondText;
    int first, second;
};
/// Set 1 is a law office's, set 2 a field service's. Within a set time records come first.
constexpr LabelPresetRow kPresets[] = {
    {1, kTime, PresetMatters, PresetMatter, 100, 110},
    {1, kTime, FieldClient, FieldClient, 99, 109},
    {1, kTime, FieldCostCentre, FieldCostCentre, 102, 112},
    {1, kTime, FieldExpenseItem3, LabelDescription, 106, 116},
    {1, kTime, FieldBillable, FieldBillable, 107, 117},
    {1, kTime, FieldBilled, FieldBilled, 108, 118},
    {1, kTime, FieldRate, FieldRate, 103, 113},
    {1, kExpense, PresetMatters, PresetMatter, 120, 132},
    {1, kExpense, FieldClient, FieldClient, 119, 131},
    {1, kExpense, PresetDisbursement, PresetDisbursement, 121, 133},
    {1, kExpense, FieldExpenseItem3, LabelDescription, 125, 137},
    {1, kExpense, PresetCost, PresetCost, 124, 136},
    {1, kExpense, FieldBillable, FieldBillable, 126, 138},
    {1, kExpense, FieldBilled, FieldBilled, 127, 139},
    {2, kTime, PresetSite, PresetSite, 100, 110},
    {2, kTime, PresetCustomer, PresetCustomer, 99, 109},
    {2, kTime, PresetVehicles, PresetVehicle, 102, 112},
    {2, kTime, PresetJob, PresetJob, 101, 111},
    {2, kTime, FieldNotes, FieldNotes, 106, 116},
    {2, kTime, FieldBillable, FieldBillable, 107, 117},
    {2, kTime, FieldBilled, FieldBilled, 108, 118},
    {2, kExpense, PresetPayers, PresetPayer, 122, 134},
    {2, kExpense, PresetMaterials, PresetMaterial, 121, 133},
    {2, kExpense, PresetCustomer, PresetCustomer, 119, 131},
    {2, kExpense, PresetJob, PresetJob, 120, 132},
    {2, kExpense, FieldAmount, FieldAmount, 124, 136},
    {2, kExpense, FieldNotes, FieldNotes, 125, 137},
    {2, kExpense, FieldBillable, FieldBillable, 126, 138},
    {2, kExpense, FieldBilled, FieldBilled, 127, 139},
};

/// An empty name for every field that can be named.
std::map<int, QString> NoNames() {
    std::map<int, QString> names;
    for (const RecordMode mode : {RecordMode::Time, RecordMode::Expense})
        for (const LabelRow& row : LabelRows(mode)) names[row.first] = names[row.second] = QString();
    return names;
}

}  // namespace

std::span<const LabelRow> LabelRows(RecordMode mode) {
    if (mode == RecordMode::Time) return kTimeRows;
    return kExpenseRows;
}

bool CLabelEditor::SetLabel(int field, const QString& text) {
    if (field < kFirstLabel || field > kLastLabel) return false;
    m_isChanged = true;
    return m_catalogue.SetNames({{field, text}});
}

bool CLabelEditor::Reset() {
    m_isChanged = true;
    return m_catalogue.SetNames(NoNames());
}

bool CLabelEditor::ApplyPreset(int preset) {
    if (std::ranges::find(kPresets, preset, &LabelPresetRow::preset) == std::end(kPresets)) return false;
    m_isChanged = true;
    std::map<int, QString> names = NoNames();
    for (const LabelPresetRow& row : kPresets) {
        if (row.preset != preset) continue;
        names[row.first] = LoadText(row.firstText);
        names[row.second] = LoadText(row.secondText);
    }
    return m_catalogue.SetNames(names);
}
