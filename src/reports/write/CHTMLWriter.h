#pragma once

#include "platform/host/SafeFile.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <utility>

class CTextSink;
struct PageFragments;

/// A colour: red in the low byte, green in the middle one, blue in the high one.
using PageColour = std::uint32_t;

enum class CellAlign { Left, Right };

/// How a run of text looks.
struct TextStyle {
    QString face{};
    int size = 2;
    bool isStrong = false;
    bool isEmphasis = false;
    PageColour colour = 0x000000;

    bool operator==(const TextStyle&) const = default;
};

/// How a table looks.
struct TableStyle {
    int widthPercent = 100;
    int cellSpacing = 0;
    int cellPadding = 0;
    int border = 0;
    PageColour background = 0xFFFFFF;
    PageColour borderColour = 0xFFFFFF;
};

/// "#F1F1E2". A part below 16 loses its leading zero, so black is #000 and 0x0A0B0C is #CBA: wanted, though a
/// browser may read a short one differently.
[[nodiscard]] QString ColourText(PageColour colour);

/// Writes an HTML page element by element; the caller opens and closes them in the right order. Texts go in
/// as they stand: what looks like markup in them is markup, which is how the captions with blanks work. The
/// page itself lets no script run and nothing be fetched.
class CHTMLWriter {
 public:
    CHTMLWriter();
    /// Hands the page on in pieces as it grows, in place of holding it.
    explicit CHTMLWriter(CTextSink& sink);
    ~CHTMLWriter();
    CHTMLWriter(const CHTMLWriter&) = delete;
    CHTMLWriter& operator=(const CHTMLWriter&) = delete;

    QString documentTitle;  ///< nobody sets it so far

    void Clear();
    void BeginDocument(int margin, int a, int b);
    void EndDocument();
    /// Nothing when count isn't positive.
    void LineBreak(int count);
    void Rule();
    void OpenTable(const TableStyle& style);
    void CloseTable();
    void OpenRow(PageColour background);
    void CloseRow();
    /// The share of the width isn't written: the browser shares it out.
    void OpenCell(int widthPercent, CellAlign align, PageColour background);
    void CloseCell();
    /// An empty text becomes a blank, so that an empty cell keeps its frame.
    void Text(const QString& text, const TextStyle& style);

    /// The page so far; the last piece of one that is handed on.
    [[nodiscard]] QString GetHtml() const { return m_html; }
    /// Saves the page in the system's code page. An empty page makes no file, and that is no failure.
    [[nodiscard]] FileOutcome SaveToFile(const QString& path) const;
    /// False once the sink has refused a piece.
    [[nodiscard]] bool IsTaken() const { return m_isTaken; }

 private:
    void Pass();
    void HandOnLong();

    CTextSink* m_sink = nullptr;
    bool m_isTaken = true;
    std::unique_ptr<const PageFragments> m_fragments;
    QString m_html;
    /// Beginnings of elements that were written last: thousands of them are alike.
    std::pair<std::pair<CellAlign, PageColour>, QString> m_cell;
    std::pair<TextStyle, QString> m_text;
};
