#pragma once

#include <QString>

/// A text as it can stand in one line of a picture: what can't be printed becomes a blank, and no more of it
/// is taken than any line could hold.
[[nodiscard]] QString LineOfText(const QString& text);
