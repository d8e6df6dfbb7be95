#pragma once

#include "app/FilterTests.h"
#include "records/RowConditions.h"

#include <array>

class CERecord;

/// How an expense's amount is compared with the one wanted. Stored as these numbers; another lets nothing
/// pass.
namespace AmountComparison {
inline constexpr int kLess = 1;
inline constexpr int kGreater = 2;
inline constexpr int kEqual = 3;
}  // namespace AmountComparison

/// What must be said of a condition on the amount, as it acts otherwise than it looks: a negative amount
/// counts as 0, so nothing is less than 0, and everything is greater than -5. Empty for any other.
[[nodiscard]] QString NoteOnAmount(float amount, int comparison);

/// Which expenses a view shows: a period, texts of the five items, the amount, seven flags, and
/// words.
class ExpenseFilter final : public PeriodFilter {
 public:
    static constexpr float kAnyAmount = -1.0F;

    ExpenseFilter();

    std::array<QString, 5> items;  ///< the word for any: no test
    float amount = kAnyAmount;
    int comparison = AmountComparison::kEqual;
    int distance = FlagCriterion::kAny;  ///< distance entries
    std::array<int, 5> flags{};          ///< flag1 to flag5
    int exported = FlagCriterion::kAny;
    QString words;  ///< all of them in any text or the notes; none: no test

    bool operator==(const ExpenseFilter&) const = default;
    void Reset() override;
    /// One expense, by its rule of tests; the first that fails ends it.
    [[nodiscard]] bool Matches(const CERecord& record, const PeriodContext& context) const;

    /// The rows of the store among which all are that match.
    [[nodiscard]] RowConditions Conditions(const PeriodContext& context) const;

    /// The same tests, prepared for a walk over many records.
    class Prepared {
     public:
        Prepared(const ExpenseFilter& filter, const PeriodContext& context);
        [[nodiscard]] bool Matches(const CERecord& record) const;

     private:
        [[nodiscard]] bool MatchesAmount(const CERecord& record) const;

        FilterTests<CERecord> m_tests;
        float m_amount;
        int m_comparison;
    };
};
