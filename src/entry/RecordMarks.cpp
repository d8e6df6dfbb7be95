#include "entry/RecordMarks.h"

#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace {

/// What a mark does to a record: the flag that tells whether it is there, the flag that is set with it (null
/// for none), and whether they are set or cleared.
template <class Record>
struct MarkRow {
    RecordMark mark;
    bool Record::*flag;
    bool Record::*with;
    bool value;
};

constexpr MarkRow<CTRecord> kTimeMarks[] = {
    {RecordMark::First, &CTRecord::isBillable, nullptr, true},
    {RecordMark::FirstAndSecond, &CTRecord::isBilled, &CTRecord::isBillable, true},
    {RecordMark::Exported, &CTRecord::isExported, nullptr, true},
    {RecordMark::NotExported, &CTRecord::isExported, nullptr, false},
};

constexpr MarkRow<CERecord> kExpenseMarks[] = {
    {RecordMark::First, &CERecord::flag1, nullptr, true},
    {RecordMark::FirstAndSecond, &CERecord::flag2, &CERecord::flag1, true},
    {RecordMark::Third, &CERecord::flag3, nullptr, true},
    {RecordMark::ThirdAndFourth, &CERecord::flag4, &CERecord::flag3, true},
    {RecordMark::Fifth, &CERecord::flag5, nullptr, true},
    {RecordMark::Exported, &CERecord::isExported, nullptr, true},
    {RecordMark::NotExported, &CERecord::isExported, nullptr, false},
};

template <class Record, std::size_t Count>
bool Knows(const MarkRow<Record> (&marks)[Count], RecordMark mark) {
    return std::ranges::find(marks, mark, &MarkRow<Record>::mark) != std::end(marks);
}

template <class Record, std::size_t Count>
bool Set(Record& record, const MarkRow<Record> (&marks)[Count], RecordMark mark) {
    const auto row = std::ranges::find(marks, mark, &MarkRow<Record>::mark);
    if (row == std::end(marks) || record.*row->flag == row->value) return false;
    record.*row->flag = row->value;
    if (row->with) record.*row->with = row->value;
    return true;
}

}  // namespace

bool IsMarkOf(RecordKind kind, RecordMark mark) {
    if (kind == RecordKind::Time) return Knows(kTimeMarks, mark);
    return kind == RecordKind::Expense && Knows(kExpenseMarks, mark);
}

bool SetMark(CVORec& record, RecordMark mark) {
    if (record.Kind() == RecordKind::Time) return Set(static_cast<CTRecord&>(record), kTimeMarks, mark);
    return record.Kind() == RecordKind::Expense && Set(static_cast<CERecord&>(record), kExpenseMarks, mark);
}
