#include "viewmodel/tree/TreePath.h"

#include "app/ExpenseFilter.h"
#include "app/TimeFilter.h"
#include "calendar/DateTimeVal.h"
#include "calendar/NumberText.h"
#include "config/Settings.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "viewmodel/tree/TreeTexts.h"

#include <cmath>
#include <span>

namespace {

/// The places of the five items' columns in a filter.
constexpr int kTimeItems[] = {Column::kItem1, Column::kItem2, Column::kItem3, Column::kItem4, Column::kItem5};
constexpr int kExpenseItems[] = {Column::kExpenseItem1, Column::kExpenseItem2, Column::kExpenseItem3,
                                 Column::kExpenseItem4, Column::kExpenseItem5};

bool SaysSet(const TreeStep& step, const TreeLevelRow& level) {
    return step.text == LoadText(level.set);
}

int* FlagOfFilter(TimeFilter& filter, int column) {
    return column == Column::kBillable ? &filter.billable : &filter.billed;
}
int* FlagOfFilter(ExpenseFilter& filter, int column) {
    if (column == Column::kIsDistance) return &filter.distance;
    return &filter.flags[static_cast<std::size_t>(column - Column::kFlag1)];
}

template <class Filter>
void Narrow(const TreePath& path, Filter& filter, std::span<const int, 5> items, ColumnHalf half) {
    const PeriodFilter period = filter;
    filter.Reset();
    for (const TreeStep& step : path) {
        const TreeLevelRow* level = FindTreeLevel(step.column);
        if (!level || HalfOf(step.column) != half) continue;
        if (level->IsFlag())
            *FlagOfFilter(filter, step.column) =
                SaysSet(step, *level) ? FlagCriterion::kSet : FlagCriterion::kClear;
        for (std::size_t i = 0; i < items.size(); ++i)
            if (items[i] == step.column) filter.items[i] = step.text;
    }
    static_cast<PeriodFilter&>(filter) = period;
}

/// "1.75" gives 1:45.
void FillSpan(const TreeStep& step, CTRecord& record) {
    constexpr float kMostHours = 100000.0F;
    float decimal = 0.0F;
    if (!ParseFloat(TheRegion(), step.text, decimal) || !(decimal >= 0.0F && decimal < kMostHours)) return;
    const float whole = std::floor(decimal);
    const int hours = static_cast<int>(whole),
              minutes = static_cast<int>(std::lround((decimal - whole) * 60.0F));
    if (step.column == Column::kDuration)
        record.SetDurationOnly(hours, minutes);
    else
        record.SetBreak(hours, minutes);
}

void FillTime(const TreeStep& step, CTRecord& record, bool clock24) {
    DateTimeVal time;
    if (!time.ParseTimeText(step.text, clock24)) return;
    if (step.column == Column::kStart)
        record.SetStart(time);
    else
        record.SetEnd(time);
}

void FillLevel(const TreeStep& step, const TreeLevelRow& level, CTRecord& record) {
    if (level.timeText)
        record.*level.timeText = step.text;
    else if (step.column == Column::kBillable)
        record.SetBillable(SaysSet(step, level));
    else
        record.*level.timeFlag = SaysSet(step, level);
}

void FillLevel(const TreeStep& step, const TreeLevelRow& level, CERecord& record) {
    if (level.expenseText)
        record.*level.expenseText = step.text;
    else
        record.*level.expenseFlag = SaysSet(step, level);
}

}  // namespace

void ApplyPath(const TreePath& path, TimeFilter& filter) {
    Narrow(path, filter, kTimeItems, ColumnHalf::Time);
}

void ApplyPath(const TreePath& path, ExpenseFilter& filter) {
    Narrow(path, filter, kExpenseItems, ColumnHalf::Expense);
}

bool FillRecord(const TreePath& path, CTRecord& record, const Settings& settings) {
    if (path.empty()) return false;
    record.Reset();
    for (const TreeStep& step : path) {
        if (HalfOf(step.column) != ColumnHalf::Time) continue;
        if (const TreeLevelRow* level = FindTreeLevel(step.column)) FillLevel(step, *level, record);
        if (step.column == Column::kDuration || step.column == Column::kBreak) FillSpan(step, record);
        if (step.column == Column::kStart || step.column == Column::kEnd)
            FillTime(step, record, settings.clock24);
    }
    return true;
}

bool FillRecord(const TreePath& path, CERecord& record) {
    if (path.empty()) return false;
    record.Reset();
    for (const TreeStep& step : path) {
        if (HalfOf(step.column) != ColumnHalf::Expense) continue;
        if (const TreeLevelRow* level = FindTreeLevel(step.column)) FillLevel(step, *level, record);
        float distance = 0.0F;
        if (step.column == Column::kDistance && ParseFloat(TheRegion(), step.text, distance))
            record.distance.Set(distance);
    }
    return true;
}

bool FillRecord(const TreePath& path, CVORec& record, const Settings& settings) {
    if (record.Kind() == RecordKind::Time) return FillRecord(path, static_cast<CTRecord&>(record), settings);
    return record.Kind() == RecordKind::Expense && FillRecord(path, static_cast<CERecord&>(record));
}
