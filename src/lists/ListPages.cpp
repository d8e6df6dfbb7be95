#include "lists/ListPages.h"

#include "app/CPulldownCatalogue.h"
#include "config/Settings.h"
#include "fields/Headings.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

struct PageRow {
    int list;
    FieldId field;  ///< whose own name is the caption
    Text preset;
};

constexpr PageRow kPages[] = {
    {ListId::kClient, FieldId::TimeItem1, Text::FieldClient},
    {ListId::kProject, FieldId::TimeItem2, Text::FieldProject},
    {ListId::kTimeItem3, FieldId::TimeItem3, Text::FieldActivity},
    {ListId::kTimeItem4, FieldId::TimeItem4, Text::FieldCostCentre},
    {ListId::kTimeRate, FieldId::TimeRate, Text::FieldRate},
    {ListId::kExpenseItem3, FieldId::ExpenseItem3, Text::HeadingDescriptions},
    {ListId::kDistance, FieldId::None, Text::UnitMiles},
    {ListId::kDistanceRate, FieldId::None, Text::ListDistanceRates},
    {ListId::kExpenseItem4, FieldId::ExpenseItem4, Text::FieldExpenseItem4},
    {ListId::kItem5, FieldId::TimeItem5, Text::FieldExpenseCurrency},
    {ListId::kAmount, FieldId::TimeAmount, Text::FieldAmount},
};

constexpr auto kLists = [] {
    std::array<int, std::size(kPages)> lists{};
    std::ranges::transform(kPages, lists.begin(), &PageRow::list);
    return lists;
}();

}  // namespace

std::span<const int> ListPages() {
    return kLists;
}

QString ListPageCaption(const CPulldownCatalogue& catalogue, int list, const Settings& settings) {
    if (list == ListId::kDistance && settings.metricUnits) return LoadText(Text::UnitKilometres);
    const auto row = std::ranges::find(kPages, list, &PageRow::list);
    if (row == std::end(kPages)) return {};
    const QString own =
        row->field == FieldId::None ? QString() : catalogue.Labels().Own(NumberOf(row->field));
    return own.isEmpty() ? LoadText(row->preset) : own;
}
