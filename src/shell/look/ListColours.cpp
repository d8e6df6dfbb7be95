#include "shell/look/ListColours.h"

#include "config/Settings.h"
#include "shell/look/Contrast.h"

#include <QPalette>
#include <algorithm>

namespace {

/// share 0: all of a, 1: all of b.
QColor Mix(const QColor& a, const QColor& b, double share) {
    const auto part = [share](int from, int to) { return static_cast<int>(from + (to - from) * share); };
    return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

/// What a text needs against its ground to be read without effort.
constexpr double kLegible = 4.5;

/// As far towards the colour of texts as it takes to be read on all these grounds.
QColor Strengthened(const QColor& colour, const std::array<QColor, 3>& grounds, const QColor& text) {
    constexpr int kSteps = 50;
    for (int step = 0; step < kSteps; ++step) {
        const QColor ink = Mix(colour, text, static_cast<double>(step) / kSteps);
        if (std::ranges::all_of(grounds, [&](const QColor& on) { return Contrast(ink, on) >= kLegible; }))
            return ink;
    }
    return text;
}

constexpr QRgb kFoundOnLight = 0xFFFFE08A;
constexpr QRgb kFoundOnDark = 0xFF6B4F00;

struct ColourRow {
    std::uint32_t Settings::*member;
    QColor ListColours::*target;
    double towardsText;  ///< the dark match: so far from the window's colour to the text's
};
constexpr ColourRow kGrounds[] = {
    {&Settings::alternateRowColour, &ListColours::alternate, 0.05},
    {&Settings::gridLineColour, &ListColours::grid, 0.16},
};

struct LineRow {
    std::uint32_t Settings::*member;
    QRgb dark;
};
constexpr LineRow kLines[] = {
    {&Settings::lineColour1, 0xFFF2F2F5},
    {&Settings::lineColour2, 0xFFB4B3D2},
    {&Settings::lineColour3, 0xFF9C9CCB},
    {&Settings::lineColour4, 0xFFA0A0A0},
};

}  // namespace

QColor ColourOfSetting(std::uint32_t value) {
    return {static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
            static_cast<int>(value >> 16 & 0xFF)};
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

ListColours MakeListColours(const Settings& settings, const QPalette& palette) {
    static const Settings kDefaults;
    const bool dark = IsDark(palette);
    ListColours colours;
    const QColor text = palette.color(QPalette::Text);
    const auto ground = [&](const ColourRow& row) {
        return dark ? Mix(palette.color(QPalette::Base), text, row.towardsText)
                    : ColourOfSetting(kDefaults.*row.member);
    };
    colours.window = palette.color(QPalette::Base);
    colours.found = QColor(dark ? kFoundOnDark : kFoundOnLight);
    for (const ColourRow& row : kGrounds) {
        const bool isDefault = settings.*row.member == kDefaults.*row.member;
        colours.*row.target = isDefault ? ground(row) : ColourOfSetting(settings.*row.member);
    }
    const std::array grounds{colours.window, ground(kGrounds[0]), colours.found};
    for (std::size_t line = 0; line < colours.lines.size(); ++line) {
        const LineRow& row = kLines[line];
        const QColor stored = ColourOfSetting(settings.*row.member);
        const bool isDefault = settings.*row.member == kDefaults.*row.member;
        colours.lines[line] =
            isDefault ? Strengthened(dark ? QColor(row.dark) : stored, grounds, text) : stored;
    }
    constexpr double kHead = 0.09;
    colours.head = Mix(colours.window, text, kHead);
    colours.headText = text;
    colours.highlight = palette.color(QPalette::Active, QPalette::Highlight);
    colours.highlightText = palette.color(QPalette::Active, QPalette::HighlightedText);
    colours.highlightNoFocus = palette.color(QPalette::Inactive, QPalette::Highlight);
    colours.highlightTextNoFocus = palette.color(QPalette::Inactive, QPalette::HighlightedText);
    if (colours.highlightNoFocus == colours.highlight) {
        colours.highlightNoFocus = Mix(colours.window, colours.highlight, 0.35);
        colours.highlightTextNoFocus = palette.color(QPalette::Text);
    }
    return colours;
}
