#pragma once

#include "viewmodel/report/CTextMeasure.h"
#include "viewmodel/report/ReportPage.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <array>
#include <vector>

/// Measures texts with the fonts of a page. Widths of single characters are looked up once; scripts whose
/// letters change with their neighbours are left to Qt word by word. The fonts are neither hinted nor kerned:
/// so sums are true, at every zoom and in print.
class CFontMeasure final : public CTextMeasure {
 public:
    explicit CFontMeasure(const ReportPage& page);

    [[nodiscard]] double WidthOf(QStringView text, std::uint32_t style) override;
    [[nodiscard]] LineSize SizeOf(std::uint32_t style) override;
    [[nodiscard]] qsizetype Fitting(QStringView text, std::uint32_t style, double width) override;

    [[nodiscard]] const QFont& FontOf(std::uint32_t style) const { return m_fonts[style].font; }

 private:
    /// Latin letters with their marks.
    static constexpr std::size_t kDirect = 0x250;

    struct Font {
        explicit Font(const QFont& which);
        QFont font;
        QFontMetricsF metrics;
        LineSize size;
        std::array<float, kDirect> direct;  ///< below 0: not looked up yet
        QHash<char16_t, float> others;
    };

    [[nodiscard]] static double SignWidth(Font& font, QChar sign);
    [[nodiscard]] static double ShapedWidth(const Font& font, QStringView text);

    std::vector<Font> m_fonts;  ///< by style
};

/// The font of a style on a page; its pixels are units of 1/96 inch.
[[nodiscard]] QFont FontOfStyle(const ReportPage& page, const PageStyle& style);
