#include "lists/LabelSets.h"

#include "app/CPulldownCatalogue.h"
#include "fields/Headings.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <map>

namespace {

using enum Text;

constexpr LabelRow Row(Text title, FieldId field) {
    return {title, HeadingOf(field), NumberOf(field)};
}

constexpr LabelRow kTimeRows[] = {
    Row(RowClient, FieldId::TimeItem1),   Row(RowProject, FieldId::TimeItem2),
    Row(RowActivity, FieldId::TimeItem3), Row(RowCostCentre, FieldId::TimeItem4),
    Row(RowRate, FieldId::TimeRate),      Row(RowCurrency, FieldId::TimeItem5),
    Row(RowAmount, FieldId::TimeAmount),  Row(TreeNotes, FieldId::TimeNotes),
    Row(TreeBillable, FieldId::Billable), Row(TreeBilled, FieldId::Billed),
};

constexpr LabelRow kExpenseRows[] = {
    Row(RowClient, FieldId::ExpenseItem1),
    Row(RowProject, FieldId::ExpenseItem2),
    Row(RowDescription, FieldId::ExpenseItem3),
    Row(RowPayment, FieldId::ExpenseItem4),
    Row(RowCurrency, FieldId::ExpenseItem5),
    Row(RowAmount, FieldId::ExpenseAmount),
    Row(TreeNotes, FieldId::ExpenseNotes),
    Row(TreeBillable, FieldId::Flag1),
    Row(TreeBilled, FieldId::Flag2),
    Row(TreeFlag3, FieldId::Flag3),
    Row(TreeFlag4, FieldId::Flag4),
    Row(TreeFlag5, FieldId::Flag5),
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

constexpr LabelPresetRow Preset(int preset, RecordMode mode, Text firstText, Text secondText, FieldId field) {
    return {.preset = preset,
            .mode = mode,
            .firstText = firstText,
            .secondText = secondText,
            .first = HeadingOf(field),
            .second = NumberOf(field)};
}

/// Set 1 is a law office's, set 2 a field service's. Within a set time records come first.
constexpr LabelPresetRow kPresets[] = {
    Preset(1, kTime, PresetMatters, PresetMatter, FieldId::TimeItem2),
    Preset(1, kTime, FieldClient, FieldClient, FieldId::TimeItem1),
    Preset(1, kTime, FieldCostCentre, FieldCostCentre, FieldId::TimeItem4),
    Preset(1, kTime, FieldExpenseItem3, LabelDescription, FieldId::TimeNotes),
    Preset(1, kTime, FieldBillable, FieldBillable, FieldId::Billable),
    Preset(1, kTime, FieldBilled, FieldBilled, FieldId::Billed),
    Preset(1, kTime, FieldRate, FieldRate, FieldId::TimeRate),
    Preset(1, kExpense, PresetMatters, PresetMatter, FieldId::ExpenseItem2),
    Preset(1, kExpense, FieldClient, FieldClient, FieldId::ExpenseItem1),
    Preset(1, kExpense, PresetDisbursement, PresetDisbursement, FieldId::ExpenseItem3),
    Preset(1, kExpense, FieldExpenseItem3, LabelDescription, FieldId::ExpenseNotes),
    Preset(1, kExpense, PresetCost, PresetCost, FieldId::ExpenseAmount),
    Preset(1, kExpense, FieldBillable, FieldBillable, FieldId::Flag1),
    Preset(1, kExpense, FieldBilled, FieldBilled, FieldId::Flag2),
    Preset(2, kTime, PresetSite, PresetSite, FieldId::TimeItem2),
    Preset(2, kTime, PresetCustomer, PresetCustomer, FieldId::TimeItem1),
    Preset(2, kTime, PresetVehicles, PresetVehicle, FieldId::TimeItem4),
    Preset(2, kTime, PresetJob, PresetJob, FieldId::TimeItem3),
    Preset(2, kTime, FieldNotes, FieldNotes, FieldId::TimeNotes),
    Preset(2, kTime, FieldBillable, FieldBillable, FieldId::Billable),
    Preset(2, kTime, FieldBilled, FieldBilled, FieldId::Billed),
    Preset(2, kExpense, PresetPayers, PresetPayer, FieldId::ExpenseItem4),
    Preset(2, kExpense, PresetMaterials, PresetMaterial, FieldId::ExpenseItem3),
    Preset(2, kExpense, PresetCustomer, PresetCustomer, FieldId::ExpenseItem1),
    Preset(2, kExpense, PresetJob, PresetJob, FieldId::ExpenseItem2),
    Preset(2, kExpense, FieldAmount, FieldAmount, FieldId::ExpenseAmount),
    Preset(2, kExpense, FieldNotes, FieldNotes, FieldId::ExpenseNotes),
    Preset(2, kExpense, FieldBillable, FieldBillable, FieldId::Flag1),
    Preset(2, kExpense, FieldBilled, FieldBilled, FieldId::Flag2),
};

}  // namespace

std::map<int, QString> NoNames() {
    std::map<int, QString> names;
    for (const RecordMode mode : {RecordMode::Time, RecordMode::Expense})
        for (const LabelRow& row : LabelRows(mode)) names[row.first] = names[row.second] = QString();
    return names;
}

std::span<const LabelRow> LabelRows(RecordMode mode) {
    if (mode == RecordMode::Time) return kTimeRows;
    return kExpenseRows;
}

std::map<int, QString> PresetNames(int preset) {
    if (std::ranges::find(kPresets, preset, &LabelPresetRow::preset) == std::end(kPresets)) return {};
    std::map<int, QString> names = NoNames();
    for (const LabelPresetRow& row : kPresets) {
        if (row.preset != preset) continue;
        names[row.first] = LoadText(row.firstText);
        names[row.second] = LoadText(row.secondText);
    }
    return names;
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
    const std::map<int, QString> names = PresetNames(preset);
    if (names.empty()) return false;
    m_isChanged = true;
    return m_catalogue.SetNames(names);
}
