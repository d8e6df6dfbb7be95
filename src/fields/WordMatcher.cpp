#include "fields/WordMatcher.h"

#include <QStringList>
#include <QStringView>
#include <algorithm>
#include <array>
#include <utility>

namespace {

using FoldTable = std::array<char16_t, 0x10000>;

/// What an accent becomes: it is passed over.
constexpr char16_t kNothing = 0;

bool HasAccents(QChar::Script script) {
    return script == QChar::Script_Latin || script == QChar::Script_Greek || script == QChar::Script_Cyrillic;
}

/// The letter without its accents: of "ǘ" the "u". A mark of another script is a part of its letter, as the
/// two strokes are that make "ga" of the Japanese "ka".
QChar WithoutAccents(QChar letter) {
    while (letter.decompositionTag() == QChar::Canonical && HasAccents(letter.script()))
        letter = letter.decomposition().front();
    return letter;
}

bool IsAccent(char16_t unit) {
    return unit >= 0x0300 && unit <= 0x036F;
}

FoldTable MakeFoldTable() {
    FoldTable table{};
    for (std::size_t place = 0; place < table.size(); ++place) {
        const auto unit = static_cast<char16_t>(place);
        table[place] = IsAccent(unit) ? kNothing : WithoutAccents(QChar(unit)).toCaseFolded().unicode();
    }
    return table;
}

/// Each unit as words are compared: a look-up, as a million notes are read for one key.
const FoldTable& Folds() {
    static const FoldTable kFolds = MakeFoldTable();
    return kFolds;
}

std::u16string Folded(const QString& word) {
    std::u16string folded;
    for (const QChar c : word)
        if (const char16_t unit = Folds()[c.unicode()]; unit != kNothing) folded += unit;
    return folded;
}

/// How many units of a text the word takes that begins there, the accents behind its last letter among them;
/// 0 when it doesn't.
qsizetype LengthAt(const std::u16string& word, QStringView text, const FoldTable& folds) {
    std::size_t same = 0;
    qsizetype length = 0;
    for (; length < text.size(); ++length) {
        const char16_t unit = folds[text[length].unicode()];
        if (unit == kNothing) continue;
        if (same == word.size()) return length;
        if (unit != word[same++]) return 0;
    }
    return same == word.size() ? length : 0;
}

}  // namespace

WordMatcher::WordMatcher(const QString& words) {
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts)) {
        if (m_words.size() == kMostWords) break;
        std::u16string folded = Folded(word);
        const bool isWhole =
            folded.empty() || std::ranges::any_of(word, [](QChar c) { return c.isSurrogate(); });
        m_words.push_back({word, std::move(folded), isWhole});
    }
}

WordMatcher::Words WordMatcher::All() const {
    return m_words.size() == kMostWords ? ~Words{0} : (Words{1} << m_words.size()) - 1;
}

WordMatcher::Place WordMatcher::Find(const Word& word, const QString& text, qsizetype from) {
    if (word.isWhole) {
        const qsizetype at = text.indexOf(word.text, from, Qt::CaseInsensitive);
        return at < 0 ? Place{-1, 0} : Place{at, word.text.size()};
    }
    const FoldTable& folds = Folds();
    const QStringView units(text);
    const char16_t first = word.folded.front();
    for (qsizetype at = from; at < units.size(); ++at) {
        if (folds[units[at].unicode()] != first) continue;
        if (const qsizetype length = LengthAt(word.folded, units.sliced(at), folds); length > 0)
            return {at, length};
    }
    return {-1, 0};
}

WordMatcher::Words WordMatcher::In(const QString& text) const {
    Words found = 0;
    for (std::size_t i = 0; i < m_words.size(); ++i)
        if (Find(m_words[i], text, 0).length > 0) found |= Words{1} << i;
    return found;
}

std::vector<WordMatcher::Place> WordMatcher::PlacesIn(const QString& text) const {
    std::vector<bool> isFound(static_cast<std::size_t>(text.size()));
    for (const Word& word : m_words)
        for (Place place = Find(word, text, 0); place.length > 0; place = Find(word, text, place.at + 1))
            std::fill_n(isFound.begin() + place.at, place.length, true);
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
