#pragma once

#include <QString>
#include <QStringView>
#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

/// A colour as 0xAARRGGBB; without a colour of its own a thing shows what is behind it.
using PageColour = std::uint32_t;
inline constexpr PageColour kNoColour = 0;
inline constexpr PageColour kBlack = 0xFF000000;

/// How a stretch of text looks.
struct PageStyle {
    int size = 3;  ///< 1 to 7, as pages count sizes of text
    bool strong = false;
    bool emphasis = false;
    PageColour colour = kBlack;

    friend bool operator==(const PageStyle&, const PageStyle&) = default;
};

/// Text from here on has this style, up to the next run.
struct PageRun {
    std::uint32_t begin = 0;
    std::uint32_t style = 0;  ///< index in ReportPage::styles
};

enum class PageBlockKind : std::uint8_t { Text, Rule, Table };

/// What stands below one another on a page and in a cell. Text: its lines, each ended by a line feed but for
/// the last. Table: its rows.
struct PageBlock {
    std::uint32_t begin = 0;  ///< positions in the text of the page
    std::uint32_t end = 0;
    std::uint32_t index = 0;  ///< Text: its first run. Table: the table
    PageBlockKind kind = PageBlockKind::Text;
};

/// A cell has one block at least, which may be an empty text.
struct PageCell {
    std::uint32_t firstBlock = 0;
    std::uint32_t blockCount = 0;
    PageColour background = kNoColour;
    bool isRight = false;  ///< its lines end at the right edge
};

struct PageRow {
    std::uint32_t begin = 0;  ///< position in the text of the page
    std::uint32_t firstCell = 0;
    std::uint32_t cellCount = 0;
    PageColour background = kNoColour;
};

struct PageTable {
    static constexpr std::uint32_t kOutermost = std::numeric_limits<std::uint32_t>::max();

    int widthPercent = 0;  ///< of what it stands in; 0: as wide as its texts
    int spacing = 0;
    int padding = 0;
    bool hasLines = false;
    PageColour background = kNoColour;
    PageColour lineColour = kBlack;
    std::uint32_t parent = kOutermost;  ///< the table in whose cell it stands; its index is always smaller
    std::uint32_t parentColumn = 0;
    std::uint32_t columns = 0;  ///< of its longest row
    bool hasHead = false;       ///< the first row names the columns
    std::vector<PageRow> rows;
};

/// The page of a report, read: one text with everything that can be selected, copied and found, and how it is
/// arranged. In the text a tab stands between two cells, a line feed behind a row and between two blocks.
struct ReportPage {
    QString text;
    QString face;    ///< families of the font, by commas, as the page names them first
    int margin = 8;  ///< on all sides
    std::vector<PageStyle> styles{PageStyle()};
    std::vector<PageRun> runs;
    std::vector<PageBlock> blocks;
    std::vector<PageCell> cells;
    std::vector<PageTable> tables;
    std::uint32_t firstBody = 0;  ///< the blocks of the page itself
    std::uint32_t bodyCount = 0;

    [[nodiscard]] QStringView Part(std::uint32_t begin, std::uint32_t end) const {
        return QStringView(text).mid(begin, static_cast<qsizetype>(end) - begin);
    }
    /// The end of a run of a block: where the next one begins, or the block's end.
    [[nodiscard]] std::uint32_t EndOfRun(std::uint32_t run, const PageBlock& block) const {
        return run + 1 < runs.size() && runs[run + 1].begin < block.end ? runs[run + 1].begin : block.end;
    }
};

/// A part of the text of one style.
struct PageStretch {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    std::uint32_t style = 0;
};

/// Calls take with the stretches of a part of the text, in order.
template <class Take>
void ForEachStretch(const ReportPage& page, std::uint32_t begin, std::uint32_t end, Take&& take) {
    const auto behind = std::upper_bound(page.runs.begin(), page.runs.end(), begin,
                                         [](std::uint32_t at, const PageRun& run) { return at < run.begin; });
    if (behind == page.runs.begin()) return;
    for (auto run = behind - 1; run != page.runs.end() && begin < end; ++run) {
        const std::uint32_t runEnd = run + 1 == page.runs.end() ? end : std::min(end, (run + 1)->begin);
        if (runEnd <= begin) continue;
        take(PageStretch{begin, runEnd, run->style});
        begin = runEnd;
    }
}
