#include "cli/output/CaptionedLines.h"

#include "cli/output/COutput.h"

#include <algorithm>

void PutLines(COutput& out, const std::vector<CaptionedLine>& lines) {
    qsizetype width = 0;
    for (const CaptionedLine& line : lines) width = std::max(width, line.caption.size());
    for (const CaptionedLine& line : lines)
        if (!line.text.isEmpty()) out.PutLine(line.caption.leftJustified(width + 2) + line.text);
}
