#include "viewmodel/list/CRowSorter.h"

#include "viewmodel/list/MergeSort.h"

#include <array>

namespace {

/// How many places a pass of the sort by order tells apart.
constexpr unsigned kDigitBits = 11;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;

/// Dates, times and texts are in a proper order: equal, less and greater as everybody expects.
bool HasProperOrder(CompareForm form) {
    return form == CompareForm::DateAndStart || form == CompareForm::Text || form == CompareForm::TimeOfDay;
}

}  // namespace

CRowSorter::CRowSorter(int column, const CRegionalInfo& region, std::size_t rows)
    : m_column(column), m_form(CompareFormOf(column)), m_region(region), m_items(rows) {
    const std::uint64_t none = m_form == CompareForm::Text ? NumberOf({}) : 0;
    for (std::size_t row = 0; row < rows; ++row) m_items[row] = {none, static_cast<std::uint32_t>(row)};
}

void CRowSorter::Put(std::size_t row, const CVORec& record) {
    m_items[row].order = m_form == CompareForm::Text ? NumberOf(RowText(record, m_column))
                                                     : MakeRowKey(record, m_column, m_region).order;
}

/// Texts that differ in case alone have one number.
std::uint64_t CRowSorter::NumberOf(const QString& text) {
    return m_known.Get(text, [&] {
        const QString folded = text.toCaseFolded();
        const auto number = m_numbers.constFind(folded);
        return number != m_numbers.cend()
                   ? *number
                   : *m_numbers.insert(folded, static_cast<std::uint64_t>(m_numbers.size()));
    });
}

/// Numbers in order of their coming become numbers in order of their texts.
void CRowSorter::RankTexts() {
    std::vector<QHash<QString, std::uint64_t>::const_iterator> texts;
    texts.reserve(static_cast<std::size_t>(m_numbers.size()));
    for (auto text = m_numbers.cbegin(); text != m_numbers.cend(); ++text) texts.push_back(text);
    std::ranges::sort(texts, {}, [](const auto& text) -> const QString& { return text.key(); });
    std::vector<std::uint64_t> ranks(texts.size());
    for (std::size_t rank = 0; rank < texts.size(); ++rank) ranks[texts[rank].value()] = rank;
    for (Item& item : m_items) item.order = ranks[item.order];
}

/// Digit by digit from the lowest, as many as the greatest difference has: two for the dates of a few years.
/// Each pass keeps what the one before has put in order.
void CRowSorter::SortByOrder(bool ascending) {
    if (m_items.empty()) return;
    const auto [least, greatest] = std::ranges::minmax(m_items, {}, &Item::order);
    const std::uint64_t first = least.order, last = greatest.order;
    const auto place = [=](const Item& item) { return ascending ? item.order - first : last - item.order; };
    std::vector<Item> sorted(m_items.size());
    for (unsigned shift = 0; shift < 64 && (last - first) >> shift != 0; shift += kDigitBits) {
        std::array<std::uint32_t, kDigits + 1> ends{};
        for (const Item& item : m_items) ++ends[(place(item) >> shift) % kDigits + 1];
        for (std::size_t digit = 1; digit <= kDigits; ++digit) ends[digit] += ends[digit - 1];
        for (const Item& item : m_items) sorted[ends[(place(item) >> shift) % kDigits]++] = item;
        m_items.swap(sorted);
    }
}

std::vector<std::uint32_t> CRowSorter::Sorted(bool ascending) {
    if (m_form == CompareForm::Text) RankTexts();
    if (HasProperOrder(m_form))
        SortByOrder(ascending);
    else
        MergeSort(m_items, [this, ascending](const Item& a, const Item& b) {
            return CompareOrders(m_form, a.order, b.order, ascending);
        });
    std::vector<std::uint32_t> rows;
    rows.reserve(m_items.size());
    for (const Item& item : m_items) rows.push_back(item.row);
    return rows;
}
