#pragma once

#include "lang/Text.h"

#include <cstdint>
#include <span>

/// A colour that can be picked. Values are 0x00BBGGRR, as the settings hold them.
struct NamedColour {
    Text name;
    std::uint32_t value;
};

inline constexpr int kColourCount = 40;
/// No colour: whatever the setting is by default.
inline constexpr std::uint32_t kAutomaticColour = 0xFF000000;

/// The colours in the order of the grid.
[[nodiscard]] std::span<const NamedColour> ColourTable();
/// Null for a colour that isn't in the grid.
[[nodiscard]] const NamedColour* FindColour(std::uint32_t value);
