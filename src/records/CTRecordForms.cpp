// The forms in which a time record travels: a row of its table, a row of a bulk read, a block of bytes, a
// copy.
#include "records/CTRecord.h"
#include "records/MemberColumns.h"
#include "records/StoredMembers.h"

namespace {

using enum Text;
using namespace Stored;

/// The duration; the other two spans follow it.
struct Duration {
    static constexpr auto kMember = &SpanSet::duration;
    int place;
    [[nodiscard]] static constexpr std::array<FieldDef, 2> Defs() {
        return {FieldDef::Int(ColumnDurationHours), FieldDef::Int(ColumnDurationMinutes)};
    }
    static void Put(const CTRecord& record, auto& out) {
        out.PutInt(record.spans.duration.hours);
        out.PutInt(record.spans.duration.minutes);
    }
    static void TakeRow(CTRecord& record, auto& row) {
        const int hours = row.Int();
        record.spans.duration.Set(hours, row.Int());
    }
    static void TakeBytes(CTRecord& record, ByteStream& stream, bool) {
        const int hours = stream.GetInt();
        record.spans.duration.Set(hours, stream.GetInt());
    }
    static void Copy(CTRecord& record, const CTRecord& other) { record.spans.Copy(other.spans); }
};

/// Behind the duration, so that the net time comes out of both.
struct Break {
    static constexpr auto kMember = &SpanSet::breakTime;
    int place;
    [[nodiscard]] static constexpr std::array<FieldDef, 2> Defs() {
        return {FieldDef::Int(ColumnBreakHours), FieldDef::Int(ColumnBreakMinutes)};
    }
    static void Put(const CTRecord& record, auto& out) {
        out.PutInt(record.spans.breakTime.hours);
        out.PutInt(record.spans.breakTime.minutes);
    }
    static void TakeRow(CTRecord& record, auto& row) {
        const int hours = row.Int();
        record.spans.SetBreak(hours, row.Int());
    }
    static void TakeBytes(CTRecord& record, ByteStream& stream, bool) {
        const int hours = stream.GetInt();
        record.spans.SetBreak(hours, stream.GetInt());
    }
    static void Copy(CTRecord&, const CTRecord&) {}  // with the duration
};

constexpr std::tuple kMembers = {
    Number<&CTRecord::startHour>{ColumnStartHour, 1},
    Number<&CTRecord::startMinute>{ColumnStartMinute, 2},
    Flag<&CTRecord::startIsPm>{ColumnStartPm, 3},
    Number<&CTRecord::endHour>{ColumnEndHour, 4},
    Number<&CTRecord::endMinute>{ColumnEndMinute, 5},
    Flag<&CTRecord::endIsPm>{ColumnEndPm, 6},
    Item<&CTRecord::item1>{ColumnItem1, 10},
    Item<&CTRecord::item2>{ColumnItem2, 11},
    Item<&CTRecord::item3>{ColumnTimeItem3, 13},
    Item<&CTRecord::item4>{ColumnTimeItem4, 14},
    Money<&CTRecord::rate>{ColumnTimeRate, 12},
    Item<&CTRecord::item5>{ColumnItem5, 15},
    Money<&CTRecord::amount>{ColumnAmount, 16},
    Flag<&CTRecord::isBillable>{ColumnBillable, 17},
    Flag<&CTRecord::isBilled>{ColumnBilled, 18},
    Flag<&CTRecord::isExported>{ColumnExported, 19},
    Duration{7},
    Break{8},
    Day<&CTRecord::date>{ColumnMonth, ColumnDay, ColumnYear, 9},
    Stored::LongText<&CTRecord::notes>{ColumnNotes, 20},
    Identity{},
};
constexpr auto kFields = Stored::FieldDefsOf(kMembers);

}  // namespace

ColumnSet ColumnsOf(QString CTRecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

ColumnSet ColumnsOf(bool CTRecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

ColumnSet ColumnsOf(DecimalField CTRecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

ColumnSet ColumnsOf(RecordDate CTRecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

ColumnSet ColumnsOf(SpanField SpanSet::*member) {
    if (member != &SpanSet::effective) return Stored::ColumnsOf<kMembers>(member);
    return ColumnsOf(&SpanSet::duration) | ColumnsOf(&SpanSet::breakTime);
}

ColumnSet ColumnsOf(bool (CTRecord::*getTime)(int&, int&, bool&) const) {
    const auto columns = [](int CTRecord::*hour, int CTRecord::*minute, bool CTRecord::*isPm) {
        return Stored::ColumnsOf<kMembers>(hour) | Stored::ColumnsOf<kMembers>(minute) | ColumnsOf(isPm);
    };
    return getTime == &CTRecord::GetStart
               ? columns(&CTRecord::startHour, &CTRecord::startMinute, &CTRecord::startIsPm)
               : columns(&CTRecord::endHour, &CTRecord::endMinute, &CTRecord::endIsPm);
}

void LoadTimeColumns(CTRecord& record, const RowTable& rows, std::size_t row, ColumnSet columns) {
    TableRow source(rows, row);
    Stored::TakeColumns<kMembers>(record, source, columns);
}

Text CTRecord::ColumnOf(QString CTRecord::*item) {
    return Stored::ColumnOf<kMembers>(item);
}

std::span<const FieldDef> CTRecord::GetFieldDefs() const {
    return kFields;
}

bool CTRecord::WriteFields(CVORecordset& row) const {
    return Stored::Write<kMembers>(*this, row, kFields);
}

bool CTRecord::Load(const RowTable& rows, std::size_t row) {
    TableRow source(rows, row);
    if (!source.Fits(kFields)) return false;
    Stored::TakeRow<kMembers>(*this, source);
    return true;
}

bool CTRecord::ReadFields(CVORecordset& row) {
    RecordsetRow source(row);
    Stored::TakeRow<kMembers>(*this, source);
    return true;
}

QByteArray CTRecord::ToBytes() const {
    return Stored::Bytes<kMembers>(*this);
}

bool CTRecord::FromBytes(const QByteArray& bytes, bool ansi) {
    return Stored::TakeBytes<kMembers>(*this, bytes, ansi);
}

void CTRecord::Copy(const CTRecord& other) {
    Stored::Copy<kMembers>(*this, other);
    amountIsDerived = other.amountIsDerived;
    rateIsDerived = other.rateIsDerived;
}
