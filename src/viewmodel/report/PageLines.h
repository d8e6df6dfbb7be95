#pragma once

#include "viewmodel/report/ReportPage.h"

#include <vector>

class CTextMeasure;

/// A line of a text as it is shown. The blank or line feed that it ends at is no part of it.
struct PageLine {
    std::uint32_t begin = 0;  ///< positions in the text of the page
    std::uint32_t end = 0;
    double width = 0;
    double ascent = 0;  ///< from its top to where its letters stand
    double height = 0;
};

/// The widths that a text asks for.
struct TextWidths {
    double least = 0;    ///< of its longest word
    double natural = 0;  ///< of its longest line, when it may be as wide as it likes
    bool hasBreaks = false;
};
[[nodiscard]] TextWidths WidthsOf(const ReportPage& page, const PageBlock& text, CTextMeasure& measure);

/// The lines of a text at a width: broken at blanks, and inside of a word only where it is wider than a line.
[[nodiscard]] std::vector<PageLine> LinesOf(const ReportPage& page, const PageBlock& text, double width,
                                            CTextMeasure& measure);
