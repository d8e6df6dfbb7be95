#include "shell/report/ChartColours.h"

namespace {

/// Blue, orange, green, violet, brown in tones of their own: people who mix up red and green tell them apart
/// by their lightness and their share of blue.
constexpr std::array<QRgb, 5> kOnLight{0xFF0B5CAD, 0xFFB84A00, 0xFF00796B, 0xFF8A3F91, 0xFF6B5900};
constexpr std::array<QRgb, 5> kOnDark{0xFF74B6F2, 0xFFFFA05C, 0xFF4FD1B5, 0xFFE29BE0, 0xFFE3C75B};
constexpr QRgb kOtherOnLight = 0xFF5F6368;
constexpr QRgb kOtherOnDark = 0xFFB9BDC3;

QColor Mix(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

}  // namespace

ChartColours MakeChartColours(const QColor& paper, const QColor& ink) {
    const bool isDark = qGray(paper.rgb()) < 128;
    const std::array<QRgb, 5>& tones = isDark ? kOnDark : kOnLight;
    ChartColours colours;
    colours.ink = ink;
    colours.grid = Mix(paper, ink, 0.15);
    colours.zero = Mix(paper, ink, 0.6);
    colours.other = QColor(isDark ? kOtherOnDark : kOtherOnLight);
    for (std::size_t line = 0; line < tones.size(); ++line) colours.lines[line] = QColor(tones[line]);
    colours.below = colours.lines[1];
    return colours;
}
