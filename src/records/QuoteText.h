#pragma once

#include <QString>

/// A text as a literal of a statement: in apostrophes, those inside doubled. The one place that quotes.
[[nodiscard]] QString QuoteText(const QString& text);
