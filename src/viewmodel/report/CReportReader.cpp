#include "viewmodel/report/CReportReader.h"

#include "viewmodel/report/PageEntities.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

/// Positions of the text take 32 bits; nobody has memory for more anyway.
constexpr qsizetype kMost = std::numeric_limits<std::uint32_t>::max() / 2;

bool IsLetter(QChar sign) {
    return (sign >= u'a' && sign <= u'z') || (sign >= u'A' && sign <= u'Z');
}

/// U+00A0 is none: it keeps its place.
bool IsWhite(char16_t sign) {
    return sign == u' ' || (sign >= u'\t' && sign <= u'\r') || sign == 0x2028 || sign == 0x2029;
}

/// Characters that no text is to have: the page's own text has tabs and line feeds with a meaning.
bool IsControl(char16_t sign) {
    return sign < u' ' || (sign >= 0x7F && sign < 0xA0) || sign == 0xFFFE || sign == 0xFFFF;
}

void AddSign(CPageBuilder& builder, char16_t sign) {
    if (IsWhite(sign)) return builder.AddSpace();
    builder.Add(IsControl(sign) ? QChar(QChar::ReplacementCharacter) : QChar(sign));
}

}  // namespace

CReportReader::CReportReader(const QString& html) : m_html(html.size() > kMost ? html.left(kMost) : html) {}

double CReportReader::Progress() const {
    return m_html.isEmpty() ? 1 : static_cast<double>(m_at) / static_cast<double>(m_html.size());
}

bool CReportReader::Advance(qsizetype characters) {
    const qsizetype until = std::min(m_html.size(), m_at + characters);
    while (m_at < until) {
        if (m_html[m_at] == u'<')
            ReadMark();
        else
            ReadText(until);
    }
    return m_at >= m_html.size();
}

void CReportReader::ReadText(qsizetype end) {
    while (m_at < end && m_html[m_at] != u'<') ReadSign();
}

void CReportReader::ReadSign() {
    const PageEntity entity = m_html[m_at] == u'&' ? EntityAt(QStringView(m_html).mid(m_at)) : PageEntity();
    if (entity.sign == 0) {
        AddSign(m_builder, m_html[m_at].unicode());
    } else {
        for (const char16_t sign : QChar::fromUcs4(entity.sign)) AddSign(m_builder, sign);
    }
    m_at += entity.length;
}

/// Only a letter or "/" behind "<" begins a tag, and only where it ends before the next "<": "3 < 4" and "a
/// <b" are text.
bool CReportReader::IsTagAt(qsizetype at) const {
    const qsizetype name = at + (at < m_html.size() && m_html[at] == u'/' ? 1 : 0);
    return name < m_html.size() && IsLetter(m_html[name]);
}

void CReportReader::ReadMark() {
    const qsizetype inside = m_at + 1;
    if (QStringView(m_html).mid(inside).startsWith(u"!--")) return SkipComment();
    const bool isTag =
        IsTagAt(inside) || (inside < m_html.size() && (m_html[inside] == u'!' || m_html[inside] == u'?'));
    const auto isEnd = [](QChar sign) { return sign == u'<' || sign == u'>'; };
    const auto* end = isTag ? std::find_if(m_html.cbegin() + inside, m_html.cend(), isEnd) : m_html.cend();
    if (end != m_html.cend() && *end == u'>') return ReadTag(end - m_html.cbegin());
    ReadSign();
}

void CReportReader::ReadTag(qsizetype end) {
    const CPageTag tag(QStringView(m_html).mid(m_at + 1, end - m_at - 1));
    m_at = end + 1;
    if (tag.IsClosing()) return m_builder.Close(tag);
    if (tag.Kind() == PageTagKind::Hidden) return SkipHidden(tag.Name());
    m_builder.Open(tag);
}

void CReportReader::SkipComment() {
    const qsizetype end = m_hasNoCommentEnd ? -1 : m_html.indexOf(u"-->", m_at);
    m_hasNoCommentEnd = end < 0;
    m_at = end < 0 ? m_at + 4 : end + 3;
}

/// An element without an end loses its tag only.
void CReportReader::SkipHidden(QStringView name) {
    const QString ending = QStringLiteral("</") + name.toString().toLower();
    if (m_endless.contains(ending)) return;
    const qsizetype end = m_html.indexOf(ending, m_at, Qt::CaseInsensitive);
    if (end < 0)
        m_endless.append(ending);
    else
        m_at = end;
}

std::unique_ptr<ReportPage> ReadReport(const QString& html) {
    CReportReader reader(html);
    while (!reader.Advance(html.size() + 1)) continue;
    return reader.TakePage();
}
