#pragma once

#include <array>
#include <cstddef>
#include <vector>

/// Values made from keys, kept for the next time: a table of fixed size, so that it never grows over a
/// lifetime of records. When the places of a key are taken, the first of them is given away; what was in it
/// lives on in every copy that is held.
///
/// View is what is looked up; Key stores it and has Key(View), Matches(View). The hash is the caller's.
template <class Key, class View, class Value, std::size_t Slots>
class TextCache {
    static_assert((Slots & (Slots - 1)) == 0, "a power of two");
    static constexpr std::size_t kPlaces = 4;  ///< neighbours that a key may lie in

 public:
    /// The value of a key, made when it is absent. Valid until the next call.
    template <class Make>
    [[nodiscard]] const Value& Get(const View& view, std::size_t hash, Make&& make) {
        if (m_slots.empty()) m_slots.resize(Slots);
        Slot* place = nullptr;
        for (std::size_t i = 0; i < kPlaces; ++i) {
            Slot& slot = m_slots[(hash + i) & (Slots - 1)];
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
    std::vector<Slot> m_slots;
};
