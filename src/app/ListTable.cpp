#include "app/ListTable.h"

#include "calendar/NumberText.h"
#include "fields/Headings.h"

#include <algorithm>
#include <vector>

namespace {

/// The member of the records that holds items of a list; null when none does.
template <class Record, std::size_t Count>
constexpr QString Record::*ItemOf(int list, const FieldRow (&fields)[Count]) {
    for (const FieldRow& field : fields)
        if (field.list == list && field.form == FieldForm::Text)
            return std::get<QString Record::*>(field.member);
    return nullptr;
}

/// A distance is stored as a text, so the items of its list are texts, too.
constexpr bool HoldsMoney(int list) {
    const auto isMoney = [list](const FieldRow& field) {
        return field.list == list && field.form == FieldForm::Money;
    };
    return std::ranges::any_of(kTimeFields, isMoney) || std::ranges::any_of(kExpenseFields, isMoney);
}

/// Where no text of a record holds the items, the list is offered for a number.
constexpr ListRow Row(int list, Text title) {
    return {.list = list,
            .title = title,
            .holdsNumbers = HoldsMoney(list),
            .timeField = ItemOf<CTRecord>(list, kTimeFields),
            .expenseField = ItemOf<CERecord>(list, kExpenseFields)};
}

constexpr ListRow kLists[] = {
    Row(ListId::kClient, Text::FieldClient),         Row(ListId::kProject, Text::FieldProject),
    Row(ListId::kTimeRate, Text::ListHourlyRates),   Row(ListId::kTimeItem3, Text::FieldActivity),
    Row(ListId::kTimeItem4, Text::FieldCostCentre),  Row(ListId::kExpenseItem3, Text::FieldExpenseItem3),
    Row(ListId::kDistance, Text::ColumnCaptionTrip), Row(ListId::kDistanceRate, Text::ListDistanceRates),
    Row(ListId::kExpenseItem4, Text::ListPayments),  Row(ListId::kItem5, Text::FieldExpenseCurrency),
    Row(ListId::kAmount, Text::FieldAmount),
};

std::vector<int> MakeKnownLists() {
    std::vector<int> lists;
    for (const ListRow& row : kLists) lists.push_back(row.list);
    const auto append = [&lists](int first, int last) {
        for (int list = first; list <= last; ++list) lists.push_back(list);
    };
    constexpr int kFirstOfExpenses = NumberOf(FieldId::ExpenseItem1);
    append(kFirstLabel, kFirstOfExpenses - 1);
    lists.push_back(HeadingOf(FieldId::Flag5));
    append(kFirstOfExpenses, kLastLabel);
    lists.push_back(NumberOf(FieldId::Flag5));
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

QString ItemShown(int list, const QString& text) {
    float number = 0.0F;
    QString display;
    return HoldsNumbers(list) && NormaliseNumber(text, number, display) ? display : text;
}
