#pragma once

#include "records/TextCache.h"

#include <QString>
#include <bit>
#include <cstdint>

/// A text known by where it lies in memory. The copy keeps the text there, so no other can take its place.
class TextAddress {
 public:
    TextAddress() = default;
    explicit TextAddress(const QString& text) : m_text(text) {}
    [[nodiscard]] bool Matches(const QString& text) const {
        return m_text.constData() == text.constData() && m_text.size() == text.size();
    }

 private:
    QString m_text;
};

/// Values made from texts, for walks over many records: the texts of a column are mostly one and the same in
/// memory (SharedText), and are found by their address without being read. Equal texts that lie elsewhere
/// are made anew, and must come to an equal value.
template <class Value, std::size_t Slots>
class TextAddressCache {
 public:
    /// Valid until the next call.
    template <class Make>
    [[nodiscard]] const Value& Get(const QString& text, Make&& make) {
        const auto address = std::bit_cast<std::uintptr_t>(text.constData());
        return m_cache.Get(text, (address * 0x9E3779B97F4A7C15U) >> 40U, std::forward<Make>(make));
    }

 private:
    TextCache<TextAddress, QString, Value, Slots> m_cache;
};
