#include "app/ListTable.h"

#include "calendar/NumberText.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"

#include <algorithm>
#include <vector>

namespace {

constexpr ListRow kLists[] = {
    {ListId::kClient, Text::FieldClient, false, &CTRecord::item1, &CERecord::item1, Text::ColumnItem1,
     Text::ColumnItem1},
    {ListId::kProject, Text::FieldProject, false, &CTRecord::item2, &CERecord::item2, Text::ColumnItem2,
     Text::ColumnItem2},
    {ListId::kTimeRate, Text::ListHourlyRates, true, nullptr, nullptr, {}, {}},
    {ListId::kTimeItem3, Text::FieldActivity, false, &CTRecord::item3, nullptr, Text::ColumnTimeItem3, {}},
    {ListId::kTimeItem4, Text::FieldCostCentre, false, &CTRecord::item4, nullptr, Text::ColumnTimeItem4, {}},
    {ListId::kExpenseItem3,
     Text::FieldExpenseItem3,
     false,
     nullptr,
     &CERecord::item3,
     {},
     Text::ColumnExpenseItem3},
    {ListId::kDistance, Text::ColumnCaptionTrip, false, nullptr, nullptr, {}, {}},
    {ListId::kDistanceRate, Text::ListDistanceRates, true, nullptr, nullptr, {}, {}},
    {ListId::kExpenseItem4,
     Text::ListPayments,
     false,
     nullptr,
     &CERecord::item4,
     {},
     Text::ColumnExpenseItem4},
    {ListId::kItem5, Text::FieldExpenseCurrency, false, &CTRecord::item5, &CERecord::item5, Text::ColumnItem5,
     Text::ColumnItem5},
    {ListId::kAmount, Text::FieldAmount, true, nullptr, nullptr, {}, {}},
};

std::vector<int> MakeKnownLists() {
    std::vector<int> lists;
    for (const ListRow& row : kLists) lists.push_back(row.list);
    const auto append = [&lists](int first, int last) {
        for (int list = first; list <= last; ++list) lists.push_back(list);
    };
    append(kFirstLabel, 130);
    lists.push_back(128);
    append(131, kLastLabel);
    lists.push_back(140);
    return lists;
}

}  // namespace

std::span<const ListRow> RecordLists() {
    return kLists;
}

const ListRow* FindRecordList(int list) {
    const auto row = std::ranges::find(kLists, list, &ListRow::list);
    return row == std::end(kLists) ? nullptr : row;
}

bool IsRecordList(int list) {
    const ListRow* row = FindRecordList(list);
    return row && (row->timeField || row->expenseField);
}

bool HoldsNumbers(int list) {
    const ListRow* row = FindRecordList(list);
    return row && row->holdsNumbers;
}

std::span<const int> KnownLists() {
    static const std::vector<int> kKnown = MakeKnownLists();
    return kKnown;
}

bool IsKnownList(int list) {
    return FindRecordList(list) || (list >= kFirstLabel && list <= kLastLabel);
}

bool NormaliseNumber(const QString& text, float& number, QString& display) {
    float typed = 0.0F;
    if (!ParseFloat(TheRegion(), text, typed)) return false;
    display = FormatNumber(TheRegion(), static_cast<double>(typed), -1);
    return ParseFloat(TheRegion(), display, number);
}
