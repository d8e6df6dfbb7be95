#pragma once

#include "config/FontRecord.h"

#include <optional>

class QFont;
class QWidget;

/// A font as the settings keep it; nothing for one without a face or a size.
[[nodiscard]] std::optional<FontRecord> FontRecordOf(const QFont& font);

/// Lets the user choose the font of the record list; nothing when cancelled or when the font is none.
[[nodiscard]] std::optional<FontRecord> AskListFont(QWidget* parent, const QFont& present);
