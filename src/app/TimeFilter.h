#pragma once

#include "app/FilterTests.h"
#include "records/RowConditions.h"

#include <array>

class CTimerService;
class CTRecord;

/// Which time records a view shows: a period, texts of the five items, three flags, whether a timer is
/// there, and words.
class TimeFilter final : public PeriodFilter {
 public:
    TimeFilter();

    std::array<QString, 5> items;  ///< the word for any: no test
    int billable = FlagCriterion::kAny;
    int billed = FlagCriterion::kAny;
    int exported = FlagCriterion::kAny;
    int timer = FlagCriterion::kAny;
    QString words;  ///< all of them in any text or the notes; none: no test

    bool operator==(const TimeFilter&) const = default;
    void Reset() override;
    /// One record, by its rule of tests; the first that fails ends it.
    [[nodiscard]] bool Matches(const CTRecord& record, const PeriodContext& context,
                               const CTimerService* timers) const;

    /// The rows of the store among which all are that match.
    [[nodiscard]] RowConditions Conditions(const PeriodContext& context) const;

    /// The same tests, prepared for a walk over many records.
    class Prepared {
     public:
        Prepared(const TimeFilter& filter, const PeriodContext& context, const CTimerService* timers);
        [[nodiscard]] bool Matches(const CTRecord& record) const;

     private:
        [[nodiscard]] bool MatchesTimer(const CTRecord& record) const;

        FilterTests<CTRecord> m_tests;
        const CTimerService* m_timers;
        int m_timer;
    };
};
