#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// Sorts by merging. Unlike the sorts of the library it needs no proper order: whatever compare answers, it
/// ends after n log n questions, reads nothing outside and keeps every element. compare(a, b) is below 0 when
/// a goes before b; elements of which neither goes before the other keep their order.
template <class Item, class Compare>
void MergeSort(std::vector<Item>& items, Compare&& compare) {
    std::vector<Item> merged(items.size());
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t start = 0; start < items.size(); start += 2 * width) {
            const std::size_t middle = std::min(start + width, items.size());
            const std::size_t end = std::min(start + 2 * width, items.size());
            std::size_t left = start, right = middle;
            for (std::size_t out = start; out < end; ++out) {
                const bool takeRight =
                    left == middle || (right < end && compare(items[right], items[left]) < 0);
                merged[out] = items[takeRight ? right++ : left++];
            }
        }
        items.swap(merged);
    }
}
