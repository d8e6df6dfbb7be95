#pragma once

#include <QPalette>

/// The palette with hints of empty fields that can be read: half as strong as text. Some desktops' dark
/// palettes leave them black.
[[nodiscard]] QPalette Legible(const QPalette& palette);
/// Makes the program's palette legible; again whenever the desktop changes it.
void MakePaletteLegible();
