#include "shell/report/CFontMeasure.h"

#include <QStringList>
#include <QTextLayout>
#include <algorithm>

namespace {

/// Heights of the sizes 1 to 7 of a page, as browsers have them.
constexpr std::array kPixels = {10, 13, 16, 18, 24, 32, 48};
/// So much of a text is shaped at once.
constexpr qsizetype kShapedAtOnce = 500;

/// A character that looks the same and is as wide wherever it stands. Neither marks that stand on a letter
/// nor letters that join, nor what goes from right to left, nor halves of a pair.
bool IsPlain(char16_t sign) {
    if (sign < 0x300) return true;
    if (sign < 0x370) return false;
    if (sign < 0x590) return sign < 0x483 || sign > 0x489;
    if (sign >= 0x2010 && sign < 0x2C00)
        return (sign < 0x2028 || sign > 0x202F) && (sign < 0x2060 || sign > 0x206F) &&
               (sign < 0x20D0 || sign > 0x20FF);
    return sign >= 0x3001 && sign < 0xD800 && (sign < 0x302A || sign > 0x302F) &&
           (sign < 0x3099 || sign > 0x309A) && sign < 0xD7A4;
}

bool IsPlainText(QStringView text) {
    return std::ranges::all_of(text, [](QChar sign) { return IsPlain(sign.unicode()); });
}

}  // namespace

QFont FontOfStyle(const ReportPage& page, const PageStyle& style) {
    QFont font;
    QStringList families;
    for (const QString& family : page.face.split(u',', Qt::SkipEmptyParts)) families.append(family.trimmed());
    if (!families.isEmpty()) font.setFamilies(families + font.families());
    font.setPixelSize(kPixels[static_cast<std::size_t>(std::clamp(style.size, 1, 7) - 1)]);
    font.setBold(style.strong);
    font.setItalic(style.emphasis);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

CFontMeasure::Font::Font(const QFont& which) : font(which), metrics(which) {
    direct.fill(-1);
    // Lines of text need some air.
    constexpr double kAir = 1.05;
    size.height = (metrics.ascent() + metrics.descent()) * kAir;
    size.ascent = metrics.ascent() + (size.height - metrics.ascent() - metrics.descent()) / 2;
}

CFontMeasure::CFontMeasure(const ReportPage& page) {
    m_fonts.reserve(page.styles.size());
    for (const PageStyle& style : page.styles) m_fonts.emplace_back(FontOfStyle(page, style));
}

double CFontMeasure::SignWidth(Font& font, QChar sign) {
    const char16_t code = sign.unicode();
    if (code < kDirect) {
        float& known = font.direct[code];
        if (known < 0) known = static_cast<float>(font.metrics.horizontalAdvance(sign));
        return static_cast<double>(known);
    }
    const auto known = font.others.constFind(code);
    if (known != font.others.cend()) return static_cast<double>(*known);
    const auto width = static_cast<float>(font.metrics.horizontalAdvance(sign));
    font.others.insert(code, width);
    return static_cast<double>(width);
}

double CFontMeasure::ShapedWidth(const Font& font, QStringView text) {
    double width = 0;
    for (qsizetype at = 0; at < text.size(); at += kShapedAtOnce)
        width += font.metrics.horizontalAdvance(text.mid(at, kShapedAtOnce).toString());
    return width;
}

double CFontMeasure::WidthOf(QStringView text, std::uint32_t style) {
    Font& font = m_fonts[style];
    double width = 0;
    for (const QChar sign : text) {
        if (!IsPlain(sign.unicode())) return ShapedWidth(font, text);
        width += SignWidth(font, sign);
    }
    return width;
}

CTextMeasure::LineSize CFontMeasure::SizeOf(std::uint32_t style) {
    return m_fonts[style].size;
}

qsizetype CFontMeasure::Fitting(QStringView text, std::uint32_t style, double width) {
    Font& font = m_fonts[style];
    if (const QStringView front = text.left(kShapedAtOnce); !IsPlainText(front)) {
        QTextLayout layout(front.toString(), font.font);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        if (line.naturalTextWidth() <= width) return front.size();
        return std::clamp<qsizetype>(line.xToCursor(width, QTextLine::CursorOnCharacter), 0, front.size());
    }
    double sum = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!IsPlain(text[i].unicode())) return i;
        sum += SignWidth(font, text[i]);
        if (sum > width) return i;
    }
    return text.size();
}
