#include "shell/look/LegiblePalette.h"

#include <QApplication>
#include <cstdlib>

namespace {

/// Out of 255. The usual hints are some 90 away from their ground.
constexpr int kLeastContrast = 50;

/// What a colour that lets through half of its ground looks like on it.
QColor On(const QColor& ground, const QColor& colour) {
    const auto mix = [&](int above, int below) {
        return (above * colour.alpha() + below * (255 - colour.alpha())) / 255;
    };
    return {mix(colour.red(), ground.red()), mix(colour.green(), ground.green()),
            mix(colour.blue(), ground.blue())};
}

bool CanBeRead(const QColor& hint, const QColor& ground) {
    return std::abs(qGray(On(ground, hint).rgb()) - qGray(ground.rgb())) >= kLeastContrast;
}

}  // namespace

QPalette Legible(const QPalette& palette) {
    QPalette mended = palette;
    if (CanBeRead(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base))) return mended;
    QColor hint = palette.color(QPalette::Text);
    hint.setAlpha(128);
    mended.setColor(QPalette::PlaceholderText, hint);
    return mended;
}

void MakePaletteLegible() {
    const QPalette present = QApplication::palette();
    const QPalette mended = Legible(present);
    if (mended.color(QPalette::PlaceholderText) != present.color(QPalette::PlaceholderText))
        QApplication::setPalette(mended);
}
