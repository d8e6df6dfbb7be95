#include "entry/RecordMerge.h"

#include "fields/FieldTable.h"
#include "fields/FieldValue.h"

#include <algorithm>
#include <iterator>

namespace {

using Fields = std::vector<const FieldRow*>;
using Side = MergedRecord::Side;

/// The fields that belong together, each group at the place of its first field.
std::vector<Fields> GroupsOf(RecordKind kind) {
    std::vector<Fields> groups;
    for (const FieldRow& field : FieldsOf(kind)) {
        const auto bound = std::ranges::find_if(groups, [&field](const Fields& group) {
            return field.bond != Bond::None && group.front()->bond == field.bond;
        });
        if (bound == groups.end())
            groups.push_back({&field});
        else
            bound->push_back(&field);
    }
    return groups;
}

/// The fields of a group in which two records differ.
Fields DifferenceOf(const Fields& group, const CVORec& one, const CVORec& other) {
    Fields different;
    std::ranges::copy_if(group, std::back_inserter(different),
                         [&](const FieldRow* field) { return !HaveSame(*field, one, other); });
    return different;
}

bool HaveSameTimes(const CTRecord& one, const CTRecord& other) {
    return std::ranges::all_of(FieldsOf(RecordKind::Time), [&](const FieldRow& field) {
        return field.bond != Bond::Times || HaveSame(field, one, other);
    });
}

/// Whether a field of a later version only followed another one: the amount a rate, the rate an amount. What
/// a stored record was computed from isn't known; there a rate wins over an amount, as everywhere.
bool IsFollower(const FieldRow& field, const CVORec& former, const CVORec& later) {
    if (later.Kind() != RecordKind::Time || field.form != FieldForm::Money) return false;
    const auto& record = static_cast<const CTRecord&>(later);
    if (field.id == FieldId::TimeRate) return record.rateIsDerived;
    if (record.amountIsDerived) return true;
    float rate = 0.0F;
    return !record.rateIsDerived && record.GetRate(rate) &&
           !HaveSameTimes(static_cast<const CTRecord&>(former), record);
}

/// Whether anything of a group was set from one version of a record to the next, not only followed.
bool IsSet(const Fields& group, const CVORec& former, const CVORec& later) {
    return std::ranges::any_of(DifferenceOf(group, former, later),
                               [&](const FieldRow* field) { return !IsFollower(*field, former, later); });
}

/// Where a group is to be taken from.
Side SideOf(const Fields& group, const EditedRecord& edited, const CVORec& stored, Side side,
            Fields& clashes) {
    if (DifferenceOf(group, edited.began, stored).empty()) return Side::Entered;
    if (!IsSet(group, edited.untouched, edited.entered)) return Side::Stored;
    if (!IsSet(group, edited.began, stored)) return Side::Entered;
    const Fields different = DifferenceOf(group, edited.entered, stored);
    clashes.insert(clashes.end(), different.begin(), different.end());
    return side;
}

/// Times from one side and money from the other: what follows the times is computed anew.
void FollowTimes(CTRecord& merged, const CTRecord& timesFrom, const CTRecord& moneyFrom) {
    if (HaveSameTimes(timesFrom, moneyFrom)) return;
    merged.amountIsDerived = moneyFrom.amountIsDerived;
    merged.rateIsDerived = moneyFrom.rateIsDerived;
    merged.RecalcMoney();
}

}  // namespace

MergedRecord MergeRecords(const EditedRecord& edited, const CVORec& stored, Side side) {
    MergedRecord merged{stored.Clone(), {}};
    const CVORec* timesFrom = &stored;
    const CVORec* moneyFrom = &stored;
    for (const Fields& group : GroupsOf(stored.Kind())) {
        const bool isStored = SideOf(group, edited, stored, side, merged.clashes) == Side::Stored;
        const CVORec& source = isStored ? stored : edited.entered;
        for (const FieldRow* field : group) CopyField(*field, *merged.record, source);
        if (group.front()->bond == Bond::Times) timesFrom = &source;
        if (group.front()->bond == Bond::Money) moneyFrom = &source;
    }
    if (stored.Kind() == RecordKind::Time)
        FollowTimes(static_cast<CTRecord&>(*merged.record), static_cast<const CTRecord&>(*timesFrom),
                    static_cast<const CTRecord&>(*moneyFrom));
    return merged;
}

bool HaveSameContent(const CVORec& one, const CVORec& other) {
    return std::ranges::all_of(FieldsOf(one.Kind()),
                               [&](const FieldRow& field) { return HaveSame(field, one, other); });
}
