#pragma once

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"

#include <QStringList>
#include <array>
#include <optional>
#include <variant>

/// What the filter dialogs of both modes hold. A text that equals the word for any tests nothing.
struct QueryFields {
    std::array<QString, 5> items{};
    QString startText{};  ///< dates in the user's form; they count in row 0 of the periods
    QString endText{};
    bool matchCase = false;
    bool matchWhole = false;
    bool isPeriodOn = false;
    int periodRow = 0;  ///< 0 the dates, 1 to 24 a period by its place among the presets; another: the dates

    bool operator==(const QueryFields&) const = default;
};

/// The filter dialog of time records.
struct TimeQuery : QueryFields {
    int billable = FlagCriterion::kAny;
    int billed = FlagCriterion::kAny;

    /// Everything matches; both dates are today.
    void Reset(const PeriodContext& context);
    bool operator==(const TimeQuery&) const = default;
};

/// The filter dialog of expenses.
struct ExpenseQuery : QueryFields {
    float amount = ExpenseFilter::kAnyAmount;
    int comparison = AmountComparison::kEqual;
    int distance = FlagCriterion::kAny;  ///< distance entries
    std::array<int, 5> flags = {FlagCriterion::kAny, FlagCriterion::kAny, FlagCriterion::kAny,
                                FlagCriterion::kAny, FlagCriterion::kAny};

    /// Everything matches; both dates are today.
    void Reset(const PeriodContext& context);
    bool operator==(const ExpenseQuery&) const = default;
};

using StoredQuery = std::variant<TimeQuery, ExpenseQuery>;

/// The filter that a query describes today: a period by its name is that of today, not that of the day on
/// which the query was stored. A date that can't be read is taken for today.
void ApplyQuery(const TimeQuery& query, const PeriodContext& context, TimeFilter& filter);
void ApplyQuery(const ExpenseQuery& query, const PeriodContext& context, ExpenseFilter& filter);
/// The preset of a period row; nothing for row 0 and for a row that isn't there.
[[nodiscard]] std::optional<int> PresetOfRow(int row);
/// The row of a preset; 0 for one that isn't offered.
[[nodiscard]] int RowOfPreset(int preset);
/// The dates that count and can't be read with the regional values in use: today takes their place.
[[nodiscard]] QStringList UnreadDates(const QueryFields& query, const PeriodContext& context);

/// What must be said of the two dates as a range, where they count; empty when there is nothing.
[[nodiscard]] QString NoteOnDates(const QueryFields& query, const PeriodContext& context);
/// The same, and what must be said of the condition on the amount.
[[nodiscard]] QStringList NotesOn(const StoredQuery& query, const PeriodContext& context);

// The second and the fourth mark of an expense can be asked for only with the first and the third set.

/// flag: 0 to 4. Whether its box can be used.
[[nodiscard]] bool CanAskFor(const ExpenseQuery& query, std::size_t flag);
/// A mark that can't be asked for becomes any.
void DropDependents(ExpenseQuery& query);

/// The shortest decimal of an amount, with a full stop: 12345.67.
[[nodiscard]] QString AmountDigits(float amount);
/// What the box of the amount holds: the word for any, or a number in the user's form.
[[nodiscard]] QString AmountText(float amount);
/// The word for any is no test; a text that is no number is 0.
[[nodiscard]] float AmountOfText(const QString& text);
/// What must be said of a text in that box, as it acts otherwise than it looks; empty for any other.
[[nodiscard]] QString NoteOnAmountText(const QString& text, int comparison);
