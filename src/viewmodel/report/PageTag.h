#pragma once

#include "viewmodel/report/ReportPage.h"

#include <QStringView>
#include <optional>

/// What a tag means to the page of a report. All others are passed over, their texts stay.
enum class PageTagKind {
    Unknown,
    Break,  ///< a line ends
    Block,  ///< what follows begins a new line
    Rule,
    Table,
    Row,
    Cell,
    HeadCell,
    Font,
    Strong,
    Emphasis,
    Body,
    Hidden  ///< its content is no text of the page: scripts, styles, titles
};

/// A tag as it stands between "<" and ">": "/td", "table width="100%"".
class CPageTag {
 public:
    explicit CPageTag(QStringView content);

    [[nodiscard]] PageTagKind Kind() const { return m_kind; }
    [[nodiscard]] bool IsClosing() const { return m_isClosing; }
    [[nodiscard]] QStringView Name() const { return m_name; }
    /// Without its quotes; null where the tag has none of this name.
    [[nodiscard]] QStringView Attribute(QStringView name) const;
    /// A number at the attribute's beginning, within bounds; nothing where there is none.
    [[nodiscard]] std::optional<int> Number(QStringView name, int least, int most) const;
    [[nodiscard]] PageColour Colour(QStringView name) const;

 private:
    QStringView m_name;
    QStringView m_attributes;
    PageTagKind m_kind = PageTagKind::Unknown;
    bool m_isClosing = false;
};

/// The whole number that a text begins with, within bounds; nothing where it begins with none.
[[nodiscard]] std::optional<int> NumberAtFront(QStringView text, int least, int most);
/// A colour as browsers read it: "#f1f1e2", "#cba" with each digit twice; with four or five digits zeros are
/// put behind them and each third counts: "#F1F1E" is "#F1F1E0". kNoColour where it is none.
[[nodiscard]] PageColour ColourOfText(QStringView text);
