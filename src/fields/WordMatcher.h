#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

/// The words that a user looks for: what stands between blanks, each somewhere in a text, in any order, in
/// any case, and with or without the accents of Latin, Greek and Cyrillic letters, in whichever form they are
/// written. "sons cli" finds "Client & Sons", "mull" finds "Müller", and "müll" finds "Muller".
class WordMatcher {
 public:
    /// A word for each bit.
    using Words = std::uint64_t;
    /// What is typed beyond so many words narrows no further.
    static constexpr std::size_t kMostWords = 64;

    explicit WordMatcher(const QString& words);

    [[nodiscard]] bool IsEmpty() const { return m_words.empty(); }
    [[nodiscard]] Words All() const;
    /// Those that stand in a text.
    [[nodiscard]] Words In(const QString& text) const;
    /// Without words: every text.
    [[nodiscard]] bool HasAll(const QString& text) const { return In(text) == All(); }
    /// Where words stand in a text, as places and lengths in order; those that touch are one.
    struct Place {
        qsizetype at;
        qsizetype length;
        [[nodiscard]] bool operator==(const Place&) const = default;
    };
    [[nodiscard]] std::vector<Place> PlacesIn(const QString& text) const;

 private:
    struct Word {
        QString text;
        std::u16string folded;
        bool isWhole;  ///< characters of two units or accents alone: taken as it stands, but for the case
    };
    /// From a place on; length 0 where it doesn't stand.
    [[nodiscard]] static Place Find(const Word& word, const QString& text, qsizetype from);

    std::vector<Word> m_words;
};
