#pragma once

#include "calendar/PeriodFilter.h"

#include <array>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

class CTimerDesk;
class CTRecord;

/// A criterion on a flag: any, set or clear. Stored as these numbers.
namespace FlagCriterion {
inline constexpr int kAny = 100;
inline constexpr int kSet = 1;
inline constexpr int kClear = 0;
}  // namespace FlagCriterion

/// Which time records a view shows: a period, texts of the five items, three flags, and whether a timer is
/// there.
class TimeFilter final : public PeriodFilter {
 public:
    TimeFilter();

    std::array<QString, 5> items;  ///< the word for any: no test
    int billable = FlagCriterion::kAny;
    int billed = FlagCriterion::kAny;
    int exported = FlagCriterion::kAny;
    int timer = FlagCriterion::kAny;

    void Reset() override;
    /// One record, by its rule of tests; the first that fails ends it.
    [[nodiscard]] bool Matches(const CTRecord& record, const PeriodSurroundings& around,
                               const CTimerDesk* timers) const;

    /// The same tests with the period's dates and the folded texts worked out once, for a walk over many
    /// records.
    class Prepared {
     public:
        Prepared(const TimeFilter& filter, const PeriodSurroundings& around, const CTimerDesk* timers);
        [[nodiscard]] bool Matches(const CTRecord& record) const;

     private:
        struct TextTest {
            QString CTRecord::*field;
            QString wanted;  ///< in lower case unless case counts
        };
        struct FlagTest {
            bool CTRecord::*flag;
            int wanted;
        };
        [[nodiscard]] bool MatchesText(const TextTest& test, const CTRecord& record) const;
        [[nodiscard]] bool MatchesTimer(const CTRecord& record) const;

        const CTimerDesk* m_timers;
        std::optional<std::pair<std::int64_t, std::int64_t>> m_days;  ///< first and last, as DayKey
        bool m_matchWhole;
        bool m_matchCase;
        std::vector<TextTest> m_texts;  ///< only the criteria that aren't any
        std::vector<FlagTest> m_flags;
        int m_timer;
    };
};
