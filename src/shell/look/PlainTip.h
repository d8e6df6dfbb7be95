#pragma once

#include <QString>

/// A tool tip that shows the text as it is: what users write may look like markup, "<b>" say.
[[nodiscard]] QString PlainTip(const QString& text);
