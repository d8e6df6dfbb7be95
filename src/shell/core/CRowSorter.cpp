#include "shell/core/CRowSorter.h"

#include "shell/core/MergeSort.h"

#include <bit>

CRowSorter::CRowSorter(int column, const CRegionalInfo& region, std::size_t rows)
    : m_column(column), m_form(CompareFormOf(column)), m_region(region) {
    m_items.reserve(rows);
}

void CRowSorter::Add(const CVORec* record) {
    const auto row = static_cast<std::uint32_t>(m_items.size());
    if (m_form == CompareForm::Text)
        m_items.push_back({NumberOf(record ? RowText(*record, m_column) : QString()), row});
    else
        m_items.push_back({record ? MakeRowKey(*record, m_column, m_region).order : 0, row});
}

/// Most texts of a column are one and the same in memory and are known by their address; the copy that is
/// kept here keeps that address theirs.
std::uint64_t CRowSorter::NumberOf(const QString& text) {
    const auto address = std::bit_cast<std::uintptr_t>(text.constData());
    Known& known = m_known[(address >> 4U) % m_known.size()];
    const bool isSame = known.text.constData() == text.constData() && known.text.size() == text.size();
    if (isSame && known.isUsed) return known.number;
    const QString folded = text.toCaseFolded();
    auto number = m_numbers.constFind(folded);
    if (number == m_numbers.cend())
        number = m_numbers.insert(folded, static_cast<std::uint64_t>(m_numbers.size()));
    known = {text, *number, true};
    return known.number;
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

std::vector<std::uint32_t> CRowSorter::Sorted(bool ascending) {
    if (m_form == CompareForm::Text) RankTexts();
    MergeSort(m_items, [this, ascending](const Item& a, const Item& b) {
        return CompareOrders(m_form, a.order, b.order, ascending);
    });
    std::vector<std::uint32_t> rows;
    rows.reserve(m_items.size());
    for (const Item& item : m_items) rows.push_back(item.row);
    return rows;
}
