#pragma once

#include "calendar/PeriodFilter.h"
#include "fields/RecordWords.h"
#include "lang/LoadText.h"
#include "records/FieldValues.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// A criterion on a flag: any, set or clear. Stored as these numbers.
namespace FlagCriterion {
inline constexpr int kAny = 100;
inline constexpr int kSet = 1;
inline constexpr int kClear = 0;
}  // namespace FlagCriterion

/// A criterion that is neither any, set nor clear lets nothing pass.
[[nodiscard]] inline bool MatchesFlag(int criterion, bool flag) {
    return criterion == FlagCriterion::kAny ||
           criterion == (flag ? FlagCriterion::kSet : FlagCriterion::kClear);
}

/// The tests that the filters of time records and expenses share, with the period's dates and the folded
/// texts worked out once, for a walk over many records. Criteria that are any aren't kept.
template <class Record>
class FilterTests {
 public:
    FilterTests(const PeriodFilter& filter, const PeriodContext& context)
        : m_matchWhole(filter.matchWhole), m_matchCase(filter.matchCase) {
        DateTimeVal start;
        DateTimeVal end;
        if (filter.Dates(start, end, context)) m_days = {KeyOf(start), KeyOf(end)};
    }
    /// The field must equal the text or hold it, as the filter says; the word for any: no test.
    void WantText(QString Record::*field, const QString& wanted) {
        if (wanted != LoadText(Text::AnyWord)) m_texts.push_back({field, Folded(wanted)});
    }
    /// All of these words in any text or the notes, whatever the filter says of case and whole texts.
    void WantWords(const QString& words) {
        const auto wanted = std::make_shared<const RecordWords>(words);
        if (!wanted->IsEmpty()) m_words = wanted;
    }
    void WantFlag(bool Record::*flag, int wanted) {
        if (wanted != FlagCriterion::kAny) m_flags.push_back({flag, wanted});
    }

    /// Both days of the period count.
    [[nodiscard]] bool MatchesDay(const Record& record) const {
        if (!m_days) return true;
        const std::int64_t day = KeyOf(record.date);
        return day >= m_days->first && day <= m_days->second;
    }
    [[nodiscard]] bool MatchesTexts(const Record& record) const {
        for (const TextTest& test : m_texts)
            if (!MatchesText(test, record.*test.field)) return false;
        return true;
    }
    [[nodiscard]] bool MatchesWords(const Record& record) const {
        return !m_words || m_words->Matches(record);
    }
    [[nodiscard]] bool MatchesFlags(const Record& record) const {
        for (const FlagTest& test : m_flags)
            if (!MatchesFlag(test.wanted, record.*test.flag)) return false;
        return true;
    }

 private:
    struct TextTest {
        QString Record::*field;
        QString wanted;  ///< in lower case unless case counts
    };
    struct FlagTest {
        bool Record::*flag;
        int wanted;
    };

    /// Orders days as a comparison of year, then month, then day does, for every value that a record can
    /// hold.
    template <class Date>
    [[nodiscard]] static std::int64_t KeyOf(const Date& date) {
        return (std::int64_t{date.year} * 65536 + date.month) * 65536 + date.day;
    }
    [[nodiscard]] QString Folded(const QString& text) const { return m_matchCase ? text : text.toLower(); }
    [[nodiscard]] bool MatchesText(const TextTest& test, const QString& text) const {
        const QString compared = Folded(text);
        return m_matchWhole ? compared == test.wanted : compared.contains(test.wanted);
    }

    std::optional<std::pair<std::int64_t, std::int64_t>> m_days;  ///< first and last
    bool m_matchWhole;
    bool m_matchCase;
    std::vector<TextTest> m_texts;
    std::vector<FlagTest> m_flags;
    std::shared_ptr<const RecordWords> m_words;  ///< null: no words are wanted
};
