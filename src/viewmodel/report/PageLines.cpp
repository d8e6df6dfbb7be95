#include "viewmodel/report/PageLines.h"

#include "viewmodel/report/CTextMeasure.h"

#include <QStringView>
#include <algorithm>
#include <utility>

namespace {

/// Sums of single widths miss the true one by as much.
constexpr double kTolerance = 0.01;

/// A word, a blank or a line feed, all of one style.
struct Piece {
    std::uint32_t begin;
    std::uint32_t end;
    std::uint32_t style;
    QChar first;
};

/// Calls take with each piece of a text in order.
template <class Take>
void ForEachPiece(const ReportPage& page, const PageBlock& text, Take&& take) {
    const QStringView all = page.text;
    const auto isMark = [](QChar sign) { return sign == u' ' || sign == u'\n'; };
    std::uint32_t at = text.begin;
    for (std::uint32_t run = text.index; at < text.end; ++run) {
        const std::uint32_t runEnd = page.EndOfRun(run, text);
        while (at < runEnd) {
            const auto* found = std::find_if(all.begin() + at, all.begin() + runEnd, isMark);
            const auto wordEnd = static_cast<std::uint32_t>(found - all.begin());
            const std::uint32_t end = std::max(wordEnd, at + 1);
            take(Piece{at, end, page.runs[run].style, all[at]});
            at = end;
        }
    }
}

/// Fills lines with pieces.
class CLineBreaker {
 public:
    CLineBreaker(const ReportPage& page, const PageBlock& text, double width, CTextMeasure& measure)
        : m_page(page), m_width(width + kTolerance), m_measure(measure) {
        Begin(text.begin, page.runs[text.index].style);
    }

    void Take(const Piece& piece) {
        const CTextMeasure::LineSize size = m_measure.SizeOf(piece.style);
        if (piece.first == u'\n') {
            Grow(size);
            End(piece.end, piece.style);
        } else if (piece.first == u' ') {
            m_blank += WidthOf(piece);
        } else {
            Put(piece);
        }
    }
    /// What follows the last line feed is a line only if there is something, or no line at all before it.
    [[nodiscard]] std::vector<PageLine> Finish(std::uint32_t end) {
        if (m_line.end > m_line.begin || m_lines.empty()) End(end, 0);
        return std::move(m_lines);
    }

 private:
    [[nodiscard]] double WidthOf(const Piece& piece) {
        return m_measure.WidthOf(m_page.Part(piece.begin, piece.end), piece.style);
    }
    void Begin(std::uint32_t at, std::uint32_t style) {
        m_line = {.begin = at, .end = at};
        m_blank = 0;
        m_style = style;
    }
    void Grow(const CTextMeasure::LineSize& size) {
        const double below = std::max(m_line.height - m_line.ascent, size.height - size.ascent);
        m_line.ascent = std::max(m_line.ascent, size.ascent);
        m_line.height = m_line.ascent + below;
    }
    void End(std::uint32_t next, std::uint32_t style) {
        if (m_line.height == 0) Grow(m_measure.SizeOf(m_style));
        m_lines.push_back(m_line);
        Begin(next, style);
    }
    /// A word goes behind what is there, onto a line of its own, or is cut.
    void Put(Piece piece) {
        double width = WidthOf(piece);
        const bool isEmpty = m_line.end == m_line.begin;
        if (!isEmpty && m_line.width + m_blank + width > m_width) End(piece.begin, piece.style);
        if (width > m_width) {
            Cut(piece);
            width = WidthOf(piece);
        }
        Append(piece, width);
    }
    /// Takes full lines off the front of a word, until the rest fits.
    void Cut(Piece& piece) {
        while (piece.end - piece.begin > 1) {
            const QStringView word = m_page.Part(piece.begin, piece.end);
            const auto fitting = static_cast<std::uint32_t>(m_measure.Fitting(word, piece.style, m_width));
            Piece part = piece;
            part.end = part.begin + std::max(fitting, PartOfSign(word));
            if (part.end >= piece.end) return;
            Append(part, WidthOf(part));
            End(part.end, piece.style);
            piece.begin = part.end;
        }
    }
    /// One character at least stands on a line, and a pair of surrogates is one.
    [[nodiscard]] static std::uint32_t PartOfSign(QStringView word) {
        return word.size() > 1 && word[0].isHighSurrogate() && word[1].isLowSurrogate() ? 2 : 1;
    }
    void Append(const Piece& piece, double width) {
        if (m_line.end == m_line.begin && m_line.width == 0) m_line.begin = piece.begin;
        Grow(m_measure.SizeOf(piece.style));
        m_line.width += m_blank + width;
        m_line.end = piece.end;
        m_blank = 0;
    }

    const ReportPage& m_page;
    double m_width;
    CTextMeasure& m_measure;
    std::vector<PageLine> m_lines;
    PageLine m_line;
    double m_blank = 0;  ///< of blanks that nothing stands behind yet
    std::uint32_t m_style = 0;
};

}  // namespace

TextWidths WidthsOf(const ReportPage& page, const PageBlock& text, CTextMeasure& measure) {
    TextWidths widths;
    double line = 0, blank = 0;
    ForEachPiece(page, text, [&](const Piece& piece) {
        if (piece.first == u'\n') {
            line = blank = 0;
            widths.hasBreaks = true;
            return;
        }
        const double width = measure.WidthOf(page.Part(piece.begin, piece.end), piece.style);
        if (piece.first == u' ') {
            blank += width;
            return;
        }
        line += blank + width;
        blank = 0;
        widths.least = std::max(widths.least, width);
        widths.natural = std::max(widths.natural, line);
    });
    return widths;
}

std::vector<PageLine> LinesOf(const ReportPage& page, const PageBlock& text, double width,
                              CTextMeasure& measure) {
    CLineBreaker breaker(page, text, width, measure);
    ForEachPiece(page, text, [&breaker](const Piece& piece) { breaker.Take(piece); });
    return breaker.Finish(text.end);
}
