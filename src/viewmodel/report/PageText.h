#pragma once

#include <QString>
#include <cstdint>

struct ReportPage;

/// Positions in a text.
struct TextRange {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
};

/// A part of a page's text for other programs: cells parted by tabs, rows by line feeds. Blanks that don't
/// break are ordinary ones, and a cell that holds nothing else is empty.
[[nodiscard]] QString CopiedText(const ReportPage& page, std::uint32_t begin, std::uint32_t end);
/// The word that a position is in or at the end of; elsewhere the one character behind it, which may be none.
[[nodiscard]] TextRange WordAt(const QString& text, std::uint32_t position);
