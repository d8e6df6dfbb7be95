#include "viewmodel/report/TextSearch.h"

#include <QStringMatcher>
#include <algorithm>

FoundText TextSearch::Next(const QString& in, const QString& text, const FindWay& way,
                           std::uint32_t selectionBegin, std::uint32_t selectionEnd) {
    const bool isNew = !m_hasLooked || text != m_text || way.matchCase != m_matchCase;
    if (isNew) {
        m_text = text;
        m_matchCase = way.matchCase;
        m_hasLooked = true;
        FindAll(in);
    }
    if (m_places.empty()) return {};
    const std::uint32_t from =
        isNew || way.backwards ? selectionBegin : std::max(selectionEnd, selectionBegin);
    const std::size_t index = IndexFrom(from, way.backwards && !isNew);
    return {static_cast<int>(index) + 1, static_cast<int>(m_places.size())};
}

void TextSearch::Clear() {
    *this = TextSearch();
}

void TextSearch::FindAll(const QString& in) {
    m_places.clear();
    if (m_text.isEmpty()) return;
    const QStringMatcher matcher(m_text, m_matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
    for (qsizetype at = matcher.indexIn(in); at >= 0; at = matcher.indexIn(in, at + m_text.size()))
        m_places.push_back(static_cast<std::uint32_t>(at));
}

std::size_t TextSearch::IndexFrom(std::uint32_t position, bool backwards) const {
    const auto at = static_cast<std::size_t>(std::ranges::lower_bound(m_places, position) - m_places.begin());
    if (backwards) return at == 0 ? m_places.size() - 1 : at - 1;
    return at == m_places.size() ? 0 : at;
}
