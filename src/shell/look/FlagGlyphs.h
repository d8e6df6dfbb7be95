#pragma once

#include "shell/look/Glyphs.h"

/// The picture of a flag's or the notes' column, the same in the list, in menus and on the bars.
[[nodiscard]] Glyph FlagGlyph(int column);
