#pragma once

#include "viewmodel/report/ReportPage.h"

#include <QDeadlineTimer>
#include <memory>
#include <vector>

class CTextMeasure;

/// The widths that all texts and columns of a page ask for, measured once. They hold for every width of the
/// window and every zoom.
class CPageMeasures {
 public:
    /// Beyond this a column doesn't ask for more, however long its texts are: 5 inches.
    static constexpr double kWidestColumn = 480;
    /// A word that is longer doesn't make its column wider, it is cut.
    static constexpr double kLongestWord = 240;

    struct Column {
        double least = 0;    ///< of its longest word, up to kLongestWord
        double natural = 0;  ///< of its longest line, up to kWidestColumn where tables in it let it
    };
    struct Text {
        float natural = 0;
        bool hasBreaks = false;
    };

    CPageMeasures(std::shared_ptr<const ReportPage> page, CTextMeasure& measure);

    /// Goes on until the deadline. True when all is measured.
    [[nodiscard]] bool Advance(QDeadlineTimer deadline);
    [[nodiscard]] double Progress() const;

    [[nodiscard]] const Text& TextOf(std::uint32_t block) const { return m_texts[block]; }
    [[nodiscard]] const std::vector<Column>& ColumnsOf(std::uint32_t table) const { return m_columns[table]; }
    /// Of the whole page, with its margins.
    [[nodiscard]] double LeastWidth() const { return m_whole.least; }
    [[nodiscard]] double NaturalWidth() const { return m_whole.natural; }

    /// What a table takes beside the contents of its cells.
    [[nodiscard]] static double FrameOf(const PageTable& table);
    /// Between two cells, and between the outermost ones and the table's edge.
    [[nodiscard]] static double GapOf(const PageTable& table);

 private:
    void MeasureRow(std::uint32_t table, const PageRow& row);
    void MeasureBody();
    [[nodiscard]] Column MeasureBlock(std::uint32_t block);

    std::shared_ptr<const ReportPage> m_page;
    CTextMeasure& m_measure;
    std::vector<Text> m_texts;                   ///< by block
    std::vector<std::vector<Column>> m_columns;  ///< by table
    Column m_whole;
    std::size_t
        m_table;  ///< tables from here on are measured: a table in a cell comes before the one around it
    std::size_t m_row = 0;
    bool m_isDone = false;
};
