#include "fields/WordMatcher.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace {

using FoldTable = std::array<char16_t, 0x10000>;

FoldTable MakeFoldTable() {
    FoldTable table{};
    for (std::size_t unit = 0; unit < table.size(); ++unit)
        table[unit] = QChar(static_cast<char16_t>(unit)).toCaseFolded().unicode();
    return table;
}

/// Each unit as a comparison without case takes it: a look-up, as a million notes are read for one key.
const FoldTable& Folds() {
    static const FoldTable kFolds = MakeFoldTable();
    return kFolds;
}

std::u16string Folded(const QString& word) {
    std::u16string folded;
    for (const QChar c : word) folded += Folds()[c.unicode()];
    return folded;
}

/// -1 when it doesn't stand there.
qsizetype FindFolded(const std::u16string& word, const QString& text, qsizetype from) {
    const FoldTable& folds = Folds();
    const auto length = static_cast<qsizetype>(word.size());
    const QChar* units = text.constData();
    for (qsizetype at = from; at <= text.size() - length; ++at) {
        qsizetype same = 0;
        while (same < length && folds[units[at + same].unicode()] == word[static_cast<std::size_t>(same)])
            ++same;
        if (same == length) return at;
    }
    return -1;
}

}  // namespace

WordMatcher::WordMatcher(const QString& words) {
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts)) {
        if (m_words.size() == kMostWords) break;
        const bool hasPairs = std::ranges::any_of(word, [](QChar c) { return c.isSurrogate(); });
        m_words.push_back({word, Folded(word), hasPairs});
    }
}

WordMatcher::Words WordMatcher::All() const {
    return m_words.size() == kMostWords ? ~Words{0} : (Words{1} << m_words.size()) - 1;
}

qsizetype WordMatcher::Find(const Word& word, const QString& text, qsizetype from) {
    if (word.hasPairs) return text.indexOf(word.text, from, Qt::CaseInsensitive);
    return FindFolded(word.folded, text, from);
}

WordMatcher::Words WordMatcher::In(const QString& text) const {
    Words found = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i)
        if (Find(m_words[i], text, 0) >= 0) found |= Words{1} << i;
    return found;
}

std::vector<WordMatcher::Place> WordMatcher::PlacesIn(const QString& text) const {
    std::vector<bool> isFound(static_cast<std::size_t>(text.size()));
    for (const Word& word : m_words)
        for (qsizetype at = Find(word, text, 0); at >= 0; at = Find(word, text, at + 1))
            std::fill_n(isFound.begin() + at, word.text.size(), true);
    std::vector<Place> places;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!isFound[static_cast<std::size_t>(at)]) continue;
        const bool goesOn = !places.empty() && places.back().at + places.back().length == at;
        if (goesOn)
            ++places.back().length;
        else
            places.push_back({at, 1});
    }
    return places;
}
