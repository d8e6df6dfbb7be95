#pragma once

#include <QStringView>
#include <cstdint>

/// How much place texts take, in units of 1/96 inch. A style is an index in ReportPage::styles. Texts have no
/// line feed.
class CTextMeasure {
 public:
    struct LineSize {
        double ascent = 0;
        double height = 0;
    };

    virtual ~CTextMeasure() = default;
    [[nodiscard]] virtual double WidthOf(QStringView text, std::uint32_t style) = 0;
    [[nodiscard]] virtual LineSize SizeOf(std::uint32_t style) = 0;
    /// How many characters from the front fit into a width; never half of one.
    [[nodiscard]] virtual qsizetype Fitting(QStringView text, std::uint32_t style, double width) = 0;
};
