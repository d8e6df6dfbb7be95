#include "reports/definition/ReportFields.h"

#include "fields/FieldTable.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace {

using Fields = std::vector<const FieldRow*>;

bool IsOffered(const FieldRow& field, ReportUse use) {
    if (use == ReportUse::List) return field.report != ReportUse::None;
    if (use == ReportUse::Sort) return field.report != ReportUse::None && field.report != ReportUse::List;
    return field.report == use;
}

/// Groups before sums, these before what can only be sorted by or listed.
bool StandsBefore(const FieldRow* one, const FieldRow* other) {
    return std::tie(one->report, one->reportPlace) < std::tie(other->report, other->reportPlace);
}

Fields Collect(RecordKind kind, ReportUse use) {
    Fields fields;
    for (const FieldRow& field : FieldsOf(kind))
        if (IsOffered(field, use)) fields.push_back(&field);
    std::ranges::sort(fields, StandsBefore);
    return fields;
}

/// The lists of a kind, by use.
using Lists = std::array<Fields, 5>;

Lists CollectAll(RecordKind kind) {
    Lists lists;
    for (const ReportUse use : {ReportUse::Group, ReportUse::Sum, ReportUse::Sort, ReportUse::List})
        lists[static_cast<std::size_t>(use)] = Collect(kind, use);
    return lists;
}

}  // namespace

const std::vector<const FieldRow*>& ReportFields(RecordKind kind, ReportUse use) {
    static const Lists kTime = CollectAll(RecordKind::Time);
    static const Lists kExpense = CollectAll(RecordKind::Expense);
    const Lists& lists = kind == RecordKind::Time ? kTime : kExpense;
    return lists[static_cast<std::size_t>(use)];
}

bool CanUse(RecordKind kind, FieldId field, ReportUse use) {
    return std::ranges::any_of(ReportFields(kind, use),
                               [field](const FieldRow* row) { return row->id == field; });
}

bool IsReportField(FieldId field) {
    return CanUse(RecordKind::Time, field, ReportUse::List) ||
           CanUse(RecordKind::Expense, field, ReportUse::List);
}
