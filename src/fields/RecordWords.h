#pragma once

#include "fields/WordMatcher.h"
#include "records/TextAddressCache.h"

class CVORec;
enum class RecordKind : int;

/// Whether a record has all words in any of its texts or its notes, one word here and another there. Texts
/// that repeat over many records are read once.
class RecordWords {
 public:
    explicit RecordWords(const QString& words) : m_matcher(words) {}

    [[nodiscard]] bool IsEmpty() const { return m_matcher.IsEmpty(); }
    /// Of a time record or an expense; without words: every record.
    [[nodiscard]] bool Matches(const CVORec& record) const;
    /// Has what Matches reads of a record brought near, for one that comes soon: a walk through a million
    /// records waits for the memory most of its time.
    static void Announce(RecordKind kind, const CVORec& record);

 private:
    template <class Record>
    [[nodiscard]] bool MatchesTextsOf(const Record& record) const;

    WordMatcher m_matcher;
    mutable TextAddressCache<WordMatcher::Words, 1024> m_known;  ///< what stands in a text of an item
};
