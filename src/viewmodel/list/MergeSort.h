#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// Sorts by merging. Unlike the sorts of the library it needs no proper order: whatever compare answers, it
/// ends after n log n questions, reads nothing outside and keeps every element. compare(a, b) is below 0 when
/// a goes before b; elements of which neither goes before the other keep their order. What is in order
/// already, as a list that was sorted before, costs two questions an element.
template <class Item, class Compare>
class MergeSorter {
 public:
    MergeSorter(std::vector<Item>& items, Compare& compare)
        : m_items(items), m_merged(items.size()), m_compare(compare) {}

    void Sort() {
        for (std::size_t start = 0; start < m_items.size(); start += kRun)
            SortRun(start, std::min(start + kRun, m_items.size()));
        for (std::size_t width = kRun; width < m_items.size(); width *= 2) {
            for (std::size_t start = 0; start < m_items.size(); start += 2 * width)
                Merge(start, std::min(start + width, m_items.size()),
                      std::min(start + 2 * width, m_items.size()));
            m_items.swap(m_merged);
        }
    }

 private:
    /// Short runs are sorted by insertion.
    static constexpr std::size_t kRun = 8;

    void SortRun(std::size_t start, std::size_t end) {
        for (std::size_t next = start + 1; next < end; ++next) {
            Item item = m_items[next];
            std::size_t place = next;
            for (; place > start && m_compare(item, m_items[place - 1]) < 0; --place)
                m_items[place] = m_items[place - 1];
            m_items[place] = item;
        }
    }

    void Merge(std::size_t start, std::size_t middle, std::size_t end) {
        const auto from = [this](std::size_t at) {
            return m_items.begin() + static_cast<std::ptrdiff_t>(at);
        };
        const auto to = m_merged.begin() + static_cast<std::ptrdiff_t>(start);
        if (middle == end || m_compare(m_items[middle], m_items[middle - 1]) >= 0) {
            std::copy(from(start), from(end), to);
            return;
        }
        std::size_t left = start, right = middle, out = start;
        while (left < middle && right < end) {
            const bool takeRight = m_compare(m_items[right], m_items[left]) < 0;
            m_merged[out++] = m_items[takeRight ? right : left];
            right += takeRight ? 1 : 0;
            left += takeRight ? 0 : 1;
        }
        std::copy(from(left), from(middle), m_merged.begin() + static_cast<std::ptrdiff_t>(out));
        out += middle - left;
        std::copy(from(right), from(end), m_merged.begin() + static_cast<std::ptrdiff_t>(out));
    }

    std::vector<Item>& m_items;
    std::vector<Item> m_merged;
    Compare& m_compare;
};

/// Items are copied about: they are to be small.
template <class Item, class Compare>
void MergeSort(std::vector<Item>& items, Compare&& compare) {
    MergeSorter<Item, Compare>(items, compare).Sort();
}
