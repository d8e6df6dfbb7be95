#pragma once

#include "records/TextAddressCache.h"
#include "viewmodel/list/RowCompare.h"

#include <QHash>
#include <vector>

/// Sorts many rows by one column. Each row is looked at once and becomes a number; equal texts, which repeat
/// over a lifetime of records, are folded and compared once. Where the order is a proper one the numbers
/// alone put the rows in their places, otherwise two are compared at a time.
class CRowSorter {
 public:
    CRowSorter(int column, const CRegionalInfo& region, std::size_t rows);

    /// One of the rows, from 0; in whatever order. One that isn't put, as its record is gone, has no value.
    void Put(std::size_t row, const CVORec& record);
    /// The rows in their new order. Rows of which neither goes before the other keep their order.
    [[nodiscard]] std::vector<std::uint32_t> Sorted(bool ascending);
    /// After the sort: the number that a row, in the new order, was sorted by.
    [[nodiscard]] std::uint64_t OrderAt(std::size_t sortedRow) const { return m_items[sortedRow].order; }

 private:
    struct Item {
        std::uint64_t order;
        std::uint32_t row;
    };

    [[nodiscard]] std::uint64_t NumberOf(const QString& text);
    void RankTexts();
    void SortByOrder(bool ascending);

    int m_column;
    CompareForm m_form;
    const CRegionalInfo& m_region;
    std::vector<Item> m_items;
    TextAddressCache<std::uint64_t, 1024> m_known;
    QHash<QString, std::uint64_t> m_numbers;  ///< of the folded texts, in order of their coming
};
