#include "viewmodel/commands/WordSearch.h"

#include "fields/WordMatcher.h"

#include <algorithm>
#include <utility>

namespace {

QStringList WordsIn(const QString& words) {
    return words.split(u' ', Qt::SkipEmptyParts);
}

bool BeginsWord(const QString& text, const QString& word) {
    for (qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(word, at + 1, Qt::CaseInsensitive))
        if (at == 0 || !text[at - 1].isLetterOrNumber()) return true;
    return false;
}

enum class Rank { Equals, Begins, Words, Somewhere, WithPlace, NotFound };

Rank RankOf(const PlacedText& placed, const QString& words) {
    const QStringList all = WordsIn(words);
    const QString typed = words.trimmed();
    if (placed.text.compare(typed, Qt::CaseInsensitive) == 0) return Rank::Equals;
    if (placed.text.startsWith(typed, Qt::CaseInsensitive)) return Rank::Begins;
    if (std::ranges::all_of(all, [&](const QString& word) { return BeginsWord(placed.text, word); }))
        return Rank::Words;
    if (HasAllWords(placed.text, words)) return Rank::Somewhere;
    return HasAllWords(placed.place + u' ' + placed.text, words) ? Rank::WithPlace : Rank::NotFound;
}

}  // namespace

bool HasAllWords(const QString& text, const QString& words) {
    return WordMatcher(words).HasAll(text);
}

std::vector<int> FindByWords(const QStringList& texts, const QString& words) {
    const WordMatcher matcher(words);
    std::vector<int> found;
    for (int i = 0; i < texts.size(); ++i)
        if (matcher.HasAll(texts[i])) found.push_back(i);
    return found;
}

std::vector<int> FindBest(const std::vector<PlacedText>& texts, const QString& words) {
    std::vector<std::pair<Rank, int>> ranked;
    for (int i = 0; i < std::ssize(texts); ++i) {
        const Rank rank = RankOf(texts[static_cast<std::size_t>(i)], words);
        if (rank != Rank::NotFound) ranked.emplace_back(rank, i);
    }
    std::ranges::sort(ranked);
    std::vector<int> found;
    found.reserve(ranked.size());
    for (const auto& [rank, place] : ranked) found.push_back(place);
    return found;
}
