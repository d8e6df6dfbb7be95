#include "viewmodel/list/ColourTable.h"

#include <algorithm>

namespace {

// "Pale green " has a blank at its end, and "Pale blue" is rather a dark one: both as they have always been.
constexpr NamedColour kColours[] = {
    {Text::ColourBlack, 0x000000},
    {Text::ColourBrown, 0x002AA5},
    {Text::ColourDarkOliveGreen, 0x404000},
    {Text::ColourDarkGreen, 0x005500},
    {Text::ColourDarkTeal, 0x5E0000},
    {Text::ColourDarkBlue, 0x8B0000},
    {Text::ColourIndigo, 0x82004B},
    {Text::ColourDarkGrey, 0x282828},
    {Text::ColourDarkRed, 0x00008B},
    {Text::ColourOrange, 0x2068FF},
    {Text::ColourDarkYellow, 0x008B8B},
    {Text::ColourGreen, 0x009300},
    {Text::ColourTeal, 0x8E8E38},
    {Text::ColourBlue, 0xFF0000},
    {Text::ColourBlueGrey, 0xC07B7B},
    {Text::ColourGrey40, 0x666666},
    {Text::ColourRed, 0x0000FF},
    {Text::ColourLightOrange, 0x5BADFF},
    {Text::ColourLime, 0x32CD32},
    {Text::ColourSeaGreen, 0x71B33C},
    {Text::ColourAqua, 0xD4FF7F},
    {Text::ColourLightBlue, 0xC09E7D},
    {Text::ColourViolet, 0x800080},
    {Text::ColourGrey50, 0x7F7F7F},
    {Text::ColourPink, 0xCBC0FF},
    {Text::ColourGold, 0x00D7FF},
    {Text::ColourYellow, 0x00FFFF},
    {Text::ColourBrightGreen, 0x00FF00},
    {Text::ColourTurquoise, 0xD0E040},
    {Text::ColourSkyblue, 0xFFFFC0},
    {Text::ColourPlum, 0x480048},
    {Text::ColourLightGrey, 0xC0C0C0},
    {Text::ColourRose, 0xE1E4FF},
    {Text::ColourTan, 0x8CB4D2},
    {Text::ColourLightYellow, 0xE0FFFF},
    {Text::ColourPaleGreen, 0x98FB98},
    {Text::ColourPaleTurquoise, 0xEEEEAF},
    {Text::ColourPaleBlue, 0x8B8368},
    {Text::ColourLavender, 0xFAE6E6},
    {Text::ColourWhite, 0xFFFFFF},
};
static_assert(std::size(kColours) == kColourCount);

}  // namespace

std::span<const NamedColour> ColourTable() {
    return kColours;
}

const NamedColour* FindColour(std::uint32_t value) {
    const auto* found = std::ranges::find(kColours, value, &NamedColour::value);
    return found == std::end(kColours) ? nullptr : found;
}
