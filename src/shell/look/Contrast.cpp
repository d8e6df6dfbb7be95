#include "shell/look/Contrast.h"

#include <QColor>
#include <algorithm>
#include <cmath>

namespace {

/// The share of one of the three parts of a colour, 0 to 1, as light.
double Light(double share) {
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Light(colour.redF()) + 0.7152 * Light(colour.greenF()) + 0.0722 * Light(colour.blueF());
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}
