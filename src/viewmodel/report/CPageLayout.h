#pragma once

#include "viewmodel/report/CPageMeasures.h"
#include "viewmodel/report/PageLines.h"
#include "viewmodel/report/ReportPage.h"

#include <QDeadlineTimer>
#include <QRectF>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class CTextMeasure;

/// Where everything stands on a page of a width, in units of 1/96 inch from the page's top left corner. The
/// height of each row is worked out; lines are made when they are asked for.
class CPageLayout {
 public:
    /// How high a picture is at a width; 0 for none.
    using PictureHeight = std::function<double(double width)>;

    /// What stands below one another on the page.
    struct Item {
        double top = 0;
        double height = 0;
        std::uint32_t block = 0;
        bool isPicture = false;
    };
    struct Table {
        double width = 0;
        std::vector<double> columnLeft;  ///< of the cells; one more than there are columns
        std::vector<double> rowTop;      ///< of the cells; one more than there are rows
        [[nodiscard]] double Height() const { return rowTop.back(); }
    };
    struct Parts {
        std::shared_ptr<const ReportPage> page;
        std::shared_ptr<const CPageMeasures> measures;
        CTextMeasure& measure;
    };

    CPageLayout(const Parts& parts, double width, const PictureHeight& picture);

    /// Goes on until the deadline. True when it is whole; only then the rest may be asked for.
    [[nodiscard]] bool Advance(QDeadlineTimer deadline);
    [[nodiscard]] double Progress() const;

    [[nodiscard]] const ReportPage& Page() const { return *m_parts.page; }
    [[nodiscard]] double Width() const { return m_width; }
    [[nodiscard]] double Height() const { return m_height; }
    [[nodiscard]] const std::vector<Item>& Items() const { return m_items; }
    /// The first item that ends below a height; one behind the last where none does.
    [[nodiscard]] std::size_t ItemBelow(double top) const;
    /// The item that holds a position of the text; nothing on an empty page.
    [[nodiscard]] std::optional<std::size_t> ItemWith(std::uint32_t position) const;
    /// Left edge and width of what stands on the page.
    [[nodiscard]] double Left() const { return Page().margin; }
    [[nodiscard]] double ContentWidth() const { return m_width - 2.0 * Page().margin; }

    [[nodiscard]] const Table& TableAt(std::uint32_t table) const { return m_tables[table]; }
    /// The first row that ends below a height of its table.
    [[nodiscard]] std::uint32_t RowBelow(std::uint32_t table, double top) const;
    /// A cell with its padding, from the table's top left corner.
    [[nodiscard]] QRectF CellRect(std::uint32_t table, std::uint32_t row, std::uint32_t column) const;
    [[nodiscard]] double BlockHeight(std::uint32_t block, double width) const;
    [[nodiscard]] std::vector<PageLine> Lines(std::uint32_t block, double width) const;

 private:
    void ShareColumns(std::uint32_t table);
    void PlaceRow(std::uint32_t table, std::uint32_t row);
    [[nodiscard]] std::uint32_t BlockBelowPicture() const;
    void PlaceItems();
    void PlacePicture(double& top);
    [[nodiscard]] double ContentOf(std::uint32_t table, std::uint32_t column) const;
    [[nodiscard]] double TextHeight(std::uint32_t block, double width) const;
    [[nodiscard]] bool ShareSome(QDeadlineTimer deadline);
    [[nodiscard]] bool PlaceSome(QDeadlineTimer deadline);

    Parts m_parts;
    PictureHeight m_picture;
    double m_width;
    double m_height = 0;
    std::vector<double> m_lineHeights;  ///< by style
    std::vector<Table> m_tables;
    std::vector<Item> m_items;
    std::optional<std::size_t> m_pictureItem;
    std::size_t m_shared =
        0;  ///< tables before this one have their columns: an outer one before those in its cells
    std::size_t m_placed;  ///< tables from this one on have their rows: an inner one before the one around it
    bool m_isDone = false;
};
