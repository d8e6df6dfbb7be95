#pragma once

#include "viewmodel/report/PageTag.h"
#include "viewmodel/report/ReportPage.h"

#include <QStringView>
#include <memory>
#include <vector>

/// Puts a page together from its tags and texts, in any order that they come in. A closing tag that closes
/// nothing is passed over; what follows an end tag of a cell or row that came too early goes back into that
/// cell or row.
class CPageBuilder {
 public:
    /// Tables that stand in one another; of a deeper one only the texts are taken.
    static constexpr std::size_t kDeepest = 8;

    CPageBuilder();

    void Open(const CPageTag& tag);
    void Close(const CPageTag& tag);
    /// A character of the text: neither white space nor "<".
    void Add(QChar sign);
    /// White space. Of several, and of the one at the edge of a line, nothing remains.
    void AddSpace() { m_hasSpace = true; }
    /// The whole page. The builder has none afterwards.
    [[nodiscard]] std::unique_ptr<ReportPage> Finish();

 private:
    /// The open page or cell.
    struct Flow {
        std::vector<PageBlock> blocks;
        bool isInText = false;  ///< the last block is a text that goes on
        bool isLineEmpty = true;
        std::size_t outerTags = 0;  ///< tags of text that were open before; they can't be closed from here
        std::uint32_t outerStyle = 0;
        std::size_t outerIgnored = 0;
        PageCell cell;
    };
    struct OpenTable {
        std::uint32_t table = 0;
        bool isInRow = false;
        bool isInCell = false;
        bool isFirstStrong = false;  ///< all texts of the first row are strong
        bool hasStrong = false;      ///< of the open row
        bool hasPlain = false;
        PageRow row;
        std::vector<PageCell> cells;
    };
    struct OpenTag {
        PageTagKind kind;
        std::uint32_t styleBefore;
    };

    void OpenBody(const CPageTag& tag);
    void OpenStyle(const CPageTag& tag);
    void CloseStyle(PageTagKind kind);
    void OpenTableTag(const CPageTag& tag);
    void StartTable(const PageTable& like);
    void CloseTable();
    void OpenRow(const CPageTag& tag);
    void StartRow(PageColour background);
    void CloseRow();
    void NoteHead();
    void OpenCell(const CPageTag& tag);
    void StartCell(PageColour background, bool isRight);
    void OpenFlow(const PageCell& cell);
    void CloseCell();
    void ReopenRow();
    void ReopenCell();
    void BreakLine();
    void BreakSoftly();
    void AddRule();
    void Separate();
    void EndText();
    void BeginText();
    void Append(QChar sign);
    [[nodiscard]] std::uint32_t StyleIndex(const PageStyle& style);
    void SetStyle(std::uint32_t style);
    [[nodiscard]] Flow& Current() { return m_flows.back(); }
    void NeedCell();
    [[nodiscard]] std::uint32_t Position() const { return static_cast<std::uint32_t>(m_page->text.size()); }

    std::unique_ptr<ReportPage> m_page;
    std::vector<Flow> m_flows;
    std::vector<OpenTable> m_tables;
    std::vector<OpenTag> m_tags;
    std::size_t m_ignoredTags = 0;    ///< open tags of text beyond the number that is kept
    std::size_t m_ignoredTables = 0;  ///< open tables below the deepest
    std::uint32_t m_style = 0;
    bool m_hasSpace = false;
    bool m_isStyleNew = true;
};
