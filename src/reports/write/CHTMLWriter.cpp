#include "reports/write/CHTMLWriter.h"

#include "lang/FormatText.h"
#include "reports/write/CTextSink.h"
#include "reports/write/PageBytes.h"

using namespace Qt::Literals::StringLiterals;

/// What the page is put together from, looked up once for each page.
struct PageFragments {
    QString start = LoadText(Text::PageStart);
    QString afterTitle = LoadText(Text::PageAfterTitle);
    QString end = LoadText(Text::PageEnd);
    QString lineBreak = LoadText(Text::PageLineBreak);
    QString tagEnd = LoadText(Text::PageTagEnd);
    QString colour = LoadText(Text::PageColour);
    QString row = LoadText(Text::PageRow);
    QString rowEnd = LoadText(Text::PageRowEnd);
    QString cell = LoadText(Text::PageCell);
    QString afterAlignment = LoadText(Text::PageAfterAlignment);
    QString cellEnd = LoadText(Text::PageCellEnd);
    QString tableEnd = LoadText(Text::PageTableEnd);
    QString font = LoadText(Text::PageFont);
    QString fontColour = LoadText(Text::PageFontColour);
    QString fontSize = LoadText(Text::PageFontSize);
    QString fontEnd = LoadText(Text::PageFontEnd);
    QString strong = LoadText(Text::PageStrong);
    QString strongEnd = LoadText(Text::PageStrongEnd);
    QString emphasis = LoadText(Text::PageEmphasis);
    QString emphasisEnd = LoadText(Text::PageEmphasisEnd);
    QString emptyCell = LoadText(Text::PageEmptyCell);
};

namespace {

/// A piece that is handed on.
constexpr qsizetype kPiece = 1 << 16;

QString IntegerText(int number) {
    return FormatText<Text::ScanInteger>(number);
}

}  // namespace

QString ColourText(PageColour colour) {
    return QString::asprintf("#%X%X%X", colour & 0xFFU, (colour >> 8U) & 0xFFU, (colour >> 16U) & 0xFFU);
}

CHTMLWriter::CHTMLWriter() : m_fragments(std::make_unique<PageFragments>()) {}

CHTMLWriter::CHTMLWriter(CTextSink& sink) : m_sink(&sink), m_fragments(std::make_unique<PageFragments>()) {}

CHTMLWriter::~CHTMLWriter() = default;

void CHTMLWriter::Clear() {
    m_html.clear();
}

void CHTMLWriter::Pass() {
    if (m_sink && m_isTaken) m_isTaken = m_sink->Take(m_html);
    if (m_sink) m_html.clear();
}

void CHTMLWriter::HandOnLong() {
    if (m_sink && m_html.size() >= kPiece) Pass();
}

void CHTMLWriter::BeginDocument(int margin, int a, int b) {
    m_html += m_fragments->start + documentTitle + m_fragments->afterTitle;
    m_html += FormatText<Text::PageBody>(margin, margin, margin, margin, a, b);
}

void CHTMLWriter::EndDocument() {
    m_html += m_fragments->end;
    Pass();
}

void CHTMLWriter::LineBreak(int count) {
    for (int i = 0; i < count; ++i) m_html += m_fragments->lineBreak;
}

void CHTMLWriter::Rule() {
    m_html += u"<hr>"_s;
}

void CHTMLWriter::OpenTable(const TableStyle& style) {
    m_html += QString::asprintf(
        "<table width=\"%s%%\" cellSpacing=%d cellPadding=%d border=%d bgcolor=\"%s\" bordercolor=\"%s\">",
        qUtf8Printable(IntegerText(style.widthPercent)), style.cellSpacing, style.cellPadding, style.border,
        qUtf8Printable(ColourText(style.background)), qUtf8Printable(ColourText(style.borderColour)));
}

void CHTMLWriter::CloseTable() {
    m_html += m_fragments->tableEnd;
}

void CHTMLWriter::OpenRow(PageColour background) {
    m_html += m_fragments->row + m_fragments->colour + ColourText(background) + m_fragments->tagEnd;
}

void CHTMLWriter::CloseRow() {
    m_html += m_fragments->rowEnd;
    HandOnLong();
}

void CHTMLWriter::OpenCell(int /*widthPercent*/, CellAlign align, PageColour background) {
    const std::pair look(align, background);
    if (m_cell.second.isEmpty() || m_cell.first != look) {
        const PageFragments& parts = *m_fragments;
        m_cell = {look, parts.cell + (align == CellAlign::Left ? u"left"_s : u"right"_s) +
                            parts.afterAlignment + parts.colour + ColourText(background) + parts.tagEnd};
    }
    m_html += m_cell.second;
}

void CHTMLWriter::CloseCell() {
    m_html += m_fragments->cellEnd;
}

void CHTMLWriter::Text(const QString& text, const TextStyle& style) {
    const PageFragments& parts = *m_fragments;
    if (m_text.second.isEmpty() || m_text.first != style) {
        m_text = {style, parts.font + style.face + parts.fontColour + ColourText(style.colour) +
                             parts.fontSize + IntegerText(style.size) + parts.tagEnd};
        if (style.isStrong) m_text.second += parts.strong;
        if (style.isEmphasis) m_text.second += parts.emphasis;
    }
    m_html += m_text.second;
    m_html += text.isEmpty() ? parts.emptyCell : text;
    if (style.isEmphasis) m_html += parts.emphasisEnd;
    if (style.isStrong) m_html += parts.strongEnd;
    m_html += parts.fontEnd;
}

FileOutcome CHTMLWriter::SaveToFile(const QString& path) const {
    if (m_html.isEmpty()) return {true, {}};
    CPageEncoder encoder;
    return WriteWholeFile(path, encoder.Encode(m_html), FileAudience::UserDefault);
}
