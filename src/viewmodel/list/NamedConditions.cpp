#include "viewmodel/list/NamedConditions.h"

#include "app/CVelmarchDoc.h"
#include "app/RecordMode.h"
#include "calendar/GroupedNumber.h"
#include "config/CCfgStore.h"
#include "fields/ExpenseFields.h"
#include "fields/FieldTable.h"
#include "fields/ItemMembers.h"
#include "fields/TimeFields.h"
#include "lang/FormatText.h"

#include <QStringList>
#include <utility>

namespace {

template <class Filter>
class Conditions {
 public:
    Conditions(const Filter& filter, const CCfgStore& settings) : m_filter(filter), m_settings(settings) {
        static_cast<PeriodFilter&>(m_period) = filter;
    }

    /// access: the member of a filter that holds the condition.
    template <class Access>
    void Take(const QString& words, Access access) {
        Filter without = m_filter, alone = m_period;
        access(without) = access(m_none);
        access(alone) = access(m_filter);
        m_conditions.push_back(NamedCondition<Filter>{words, without, alone});
    }
    template <class Items>
    void TakeItems(const Items& fields) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const QString& text = m_filter.items[i];
            if (text == m_none.items[i]) continue;
            const QString caption = CaptionOf(FindField(static_cast<int>(fields[i].id))->column.index);
            Take(text.isEmpty() ? FormatText<Text::ConditionNoText>(caption)
                                : FormatText<Text::ConditionText>(caption, text),
                 [i](Filter& filter) -> QString& { return filter.items[i]; });
        }
    }
    template <class Access>
    void TakeFlag(int column, Access access) {
        const int wanted = access(m_filter);
        if (wanted == FlagCriterion::kAny) return;
        const QString caption = CaptionOf(column);
        Take(wanted == FlagCriterion::kSet     ? FormatText<Text::FlagSet>(caption)
             : wanted == FlagCriterion::kClear ? FormatText<Text::FlagClear>(caption)
                                               : FormatText<Text::ConditionImpossible>(caption),
             access);
    }
    [[nodiscard]] QString CaptionOf(int column) const {
        return m_settings.ListColumns().EntryAt(column).caption;
    }
    [[nodiscard]] std::vector<NamedCondition<Filter>> All() && { return std::move(m_conditions); }

 private:
    Filter m_filter;
    Filter m_period;
    Filter m_none;
    const CCfgStore& m_settings;
    std::vector<NamedCondition<Filter>> m_conditions;
};

template <class Filter>
void TakeWords(Conditions<Filter>& conditions, const QString& words) {
    if (!words.isEmpty())
        conditions.Take(FormatText<Text::ConditionWords>(words),
                        [](Filter& filter) -> QString& { return filter.words; });
}

QString TimerWords(int wanted) {
    return LoadText(wanted == FlagCriterion::kSet ? Text::ConditionWithTimer : Text::ConditionWithoutTimer);
}

/// Another comparison than these lets nothing pass, as one that is unequal to all amounts.
QString AmountWords(const ExpenseFilter& filter, const QString& caption, int precision) {
    const QString amount = GroupedNumber(TheRegion(), filter.amount, precision);
    switch (filter.comparison) {
        case AmountComparison::kLess:
            return FormatText<Text::ConditionAmountLess>(caption, amount);
        case AmountComparison::kGreater:
            return FormatText<Text::ConditionAmountGreater>(caption, amount);
        default:
            return FormatText<Text::ConditionAmountEqual>(caption, amount);
    }
}

template <class Filter>
QString Named(CVelmarchDoc& document, const Filter& filter) {
    const auto conditions = ConditionsOf(filter, document.GetSettings());
    QStringList all;
    for (const NamedCondition<Filter>& condition : conditions) {
        all.append(condition.words);
        if (document.CollectPassing(condition.alone).empty())
            return FormatText<Text::EmptyByCondition>(condition.words, filter.displayName);
    }
    return FormatText<Text::EmptyByConditions>(all.join(LoadText(Text::ConditionsBetween)),
                                               filter.displayName);
}

template <class Filter>
QStringList WordsOf(const std::vector<NamedCondition<Filter>>& conditions) {
    QStringList words;
    for (const NamedCondition<Filter>& condition : conditions) words.append(condition.words);
    return words;
}

}  // namespace

std::vector<NamedCondition<TimeFilter>> ConditionsOf(const TimeFilter& filter, const CCfgStore& settings) {
    Conditions<TimeFilter> conditions(filter, settings);
    conditions.TakeItems(ItemFields<CTRecord>(kTimeFields));
    conditions.TakeFlag(Column::kBillable, [](TimeFilter& f) -> int& { return f.billable; });
    conditions.TakeFlag(Column::kBilled, [](TimeFilter& f) -> int& { return f.billed; });
    conditions.TakeFlag(Column::kExported, [](TimeFilter& f) -> int& { return f.exported; });
    if (filter.timer != FlagCriterion::kAny)
        conditions.Take(TimerWords(filter.timer), [](TimeFilter& f) -> int& { return f.timer; });
    TakeWords(conditions, filter.words);
    return std::move(conditions).All();
}

std::vector<NamedCondition<ExpenseFilter>> ConditionsOf(const ExpenseFilter& filter,
                                                        const CCfgStore& settings) {
    Conditions<ExpenseFilter> conditions(filter, settings);
    conditions.TakeItems(ItemFields<CERecord>(kExpenseFields));
    if (filter.amount != ExpenseFilter::kAnyAmount)
        conditions.Take(
            AmountWords(filter, conditions.CaptionOf(Column::kExpenseAmount), settings.precisionAmount),
            [](ExpenseFilter& f) -> float& { return f.amount; });
    conditions.TakeFlag(Column::kIsDistance, [](ExpenseFilter& f) -> int& { return f.distance; });
    for (std::size_t i = 0; i < filter.flags.size(); ++i)
        conditions.TakeFlag(Column::kFlag1 + static_cast<int>(i),
                            [i](ExpenseFilter& f) -> int& { return f.flags[i]; });
    conditions.TakeFlag(Column::kExpenseExported, [](ExpenseFilter& f) -> int& { return f.exported; });
    TakeWords(conditions, filter.words);
    return std::move(conditions).All();
}

QStringList ConditionWords(const CVelmarchDoc& document) {
    return theRecordMode == RecordMode::Time
               ? WordsOf(ConditionsOf(document.Filter(), document.GetSettings()))
               : WordsOf(ConditionsOf(document.FilterOfExpenses(), document.GetSettings()));
}

QString WhatLeavesNothing(CVelmarchDoc& document) {
    return theRecordMode == RecordMode::Time ? Named(document, document.Filter())
                                             : Named(document, document.FilterOfExpenses());
}
