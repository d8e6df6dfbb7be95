#pragma once

#include "calendar/PeriodFilter.h"

#include <array>

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
        const TimeFilter& m_filter;
        const CTimerDesk* m_timers;
        DateTimeVal m_start, m_end;
        std::array<QString, 5> m_items;
        bool m_hasDates = false;
    };
};
