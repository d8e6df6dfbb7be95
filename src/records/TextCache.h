#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

/// Values made from keys, kept for the next time: a table of fixed size, so that it never grows over a
/// lifetime of records. When the places of a key are taken, the first of them is given away; what was in it
/// lives on in every copy that is held. A block of places is made with its first value: a command of the
/// console that shows one record isn't to pay for those of a million.
///
/// View is what is looked up; Key stores it and has Key(View), Matches(View). The hash is the caller's.
template <class Key, class View, class Value, std::size_t Slots>
class TextCache {
    static_assert((Slots & (Slots - 1)) == 0, "a power of two");
    static constexpr std::size_t kPlaces = 4;  ///< neighbours that a key may lie in
    static constexpr std::size_t kBlock = std::min<std::size_t>(Slots, 64);

 public:
    /// The value of a key, made when it is absent. Valid until the next call.
    template <class Make>
    [[nodiscard]] const Value& Get(const View& view, std::size_t hash, Make&& make) {
        std::unique_ptr<Block>& block = m_blocks[hash / kBlock % m_blocks.size()];
        if (!block) block = std::make_unique<Block>();
        Slot* place = nullptr;
        for (std::size_t i = 0; i < kPlaces; ++i) {
            Slot& slot = (*block)[(hash + i) % kBlock];
            if (slot.isUsed && slot.key.Matches(view)) return slot.value;
            if (!place || (place->isUsed && !slot.isUsed)) place = &slot;
        }
        place->key = Key(view);
        place->value = make();
        place->isUsed = true;
        return place->value;
    }

 private:
    struct Slot {
        Key key;
        Value value;
        bool isUsed = false;
    };
    using Block = std::array<Slot, kBlock>;
    std::array<std::unique_ptr<Block>, Slots / kBlock> m_blocks;
};
