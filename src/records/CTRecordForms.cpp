// The forms in which a time record travels: a row of its table, a row of a bulk read, a block of bytes.
#include "records/ByteStream.h"
#include "records/CTRecord.h"
#include "records/RowAccess.h"

namespace {

using enum Text;

constexpr FieldDef kFields[] = {
    FieldDef::Int(ColumnStartHour),  FieldDef::Int(ColumnStartMinute),   FieldDef::Int(ColumnStartPm),
    FieldDef::Int(ColumnEndHour),    FieldDef::Int(ColumnEndMinute),     FieldDef::Int(ColumnEndPm),
    FieldDef::Str(ColumnItem1),      FieldDef::Str(ColumnItem2),         FieldDef::Str(ColumnTimeItem3),
    FieldDef::Str(ColumnTimeItem4),  FieldDef::Real(ColumnTimeRate),     FieldDef::Str(ColumnItem5),
    FieldDef::Real(ColumnAmount),    FieldDef::Int(ColumnBillable),      FieldDef::Int(ColumnBilled),
    FieldDef::Int(ColumnExported),   FieldDef::Int(ColumnDurationHours), FieldDef::Int(ColumnDurationMinutes),
    FieldDef::Int(ColumnBreakHours), FieldDef::Int(ColumnBreakMinutes),  FieldDef::Int(ColumnMonth),
    FieldDef::Int(ColumnDay),        FieldDef::Int(ColumnYear),          FieldDef::Long(ColumnNotes),
    FieldDef::Key(ColumnIdentity),
};

/// Takes all columns of a row in the table's order.
template <class Row>
void Take(Row& row, CTRecord& record) {
    record.startHour = row.Int();
    record.startMinute = row.Int();
    record.startIsPm = row.Flag();
    record.endHour = row.Int();
    record.endMinute = row.Int();
    record.endIsPm = row.Flag();
    record.item1 = row.Text();
    record.item2 = row.Text();
    record.item3 = row.Text();
    record.item4 = row.Text();
    record.rate.Set(row.Float());
    record.item5 = row.Text();
    record.amount.Set(row.Float());
    record.isBillable = row.Flag();
    record.isBilled = row.Flag();
    record.isExported = row.Flag();
    const int hours = row.Int();
    record.spans.duration.Set(hours, row.Int());
    const int breakHours = row.Int();
    record.spans.SetBreak(breakHours, row.Int());
    const int month = row.Int();
    const int day = row.Int();
    record.date.Set(month, day, row.Int());
    record.notes = row.LongText();
    record.SetId(row.Key());
}

}  // namespace

std::span<const FieldDef> CTRecord::GetFieldDefs() const {
    return kFields;
}

bool CTRecord::WriteFields(CVORecordset& row) const {
    RowWriter out(row, kFields);
    out.PutInt(startHour);
    out.PutInt(startMinute);
    out.PutFlag(startIsPm);
    out.PutInt(endHour);
    out.PutInt(endMinute);
    out.PutFlag(endIsPm);
    out.PutText(item1);
    out.PutText(item2);
    out.PutText(item3);
    out.PutText(item4);
    out.PutFloat(rate.value);
    out.PutText(item5);
    out.PutFloat(amount.value);
    out.PutFlag(isBillable);
    out.PutFlag(isBilled);
    out.PutFlag(isExported);
    out.PutInt(spans.duration.hours);
    out.PutInt(spans.duration.minutes);
    out.PutInt(spans.breakTime.hours);
    out.PutInt(spans.breakTime.minutes);
    out.PutInt(date.month);
    out.PutInt(date.day);
    out.PutInt(date.year);
    out.PutText(notes);
    out.PutText(GetId());
    return out.AllSet();
}

bool CTRecord::Load(const RowTable& rows, std::size_t row) {
    TableRow source(rows, row);
    if (!source.Fits(kFields)) return false;
    Take(source, *this);
    return true;
}

bool CTRecord::ReadFields(CVORecordset& row) {
    RecordsetRow source(row);
    Take(source, *this);
    return true;
}

bool CTRecord::ToBytes(QByteArray& out) const {
    ByteStream stream;
    stream.PutInt(startHour);
    stream.PutInt(startMinute);
    stream.PutByte(startIsPm);
    stream.PutInt(endHour);
    stream.PutInt(endMinute);
    stream.PutByte(endIsPm);
    stream.PutInt(spans.duration.hours);
    stream.PutInt(spans.duration.minutes);
    stream.PutInt(spans.breakTime.hours);
    stream.PutInt(spans.breakTime.minutes);
    stream.PutInt(date.month);
    stream.PutInt(date.day);
    stream.PutInt(date.year);
    stream.PutString(item1);
    stream.PutString(item2);
    stream.PutFloat(rate.value);
    stream.PutString(item3);
    stream.PutString(item4);
    stream.PutString(item5);
    stream.PutFloat(amount.value);
    stream.PutByte(isBillable);
    stream.PutByte(isBilled);
    stream.PutByte(isExported);
    stream.PutString(notes);
    out = stream.Release();
    return true;
}

bool CTRecord::FromBytes(const QByteArray& bytes, bool ansi) {
    if (bytes.isNull()) return false;
    ByteStream stream;
    stream.Attach(bytes);
    startHour = stream.GetInt();
    startMinute = stream.GetInt();
    startIsPm = stream.GetByte() != 0;
    endHour = stream.GetInt();
    endMinute = stream.GetInt();
    endIsPm = stream.GetByte() != 0;
    const int hours = stream.GetInt();
    spans.duration.Set(hours, stream.GetInt());
    const int breakHours = stream.GetInt();
    spans.SetBreak(breakHours, stream.GetInt());
    const int month = stream.GetInt();
    const int day = stream.GetInt();
    date.Set(month, day, stream.GetInt());
    item1 = stream.GetString(ansi);
    item2 = stream.GetString(ansi);
    rate.Set(stream.GetFloat());
    item3 = stream.GetString(ansi);
    item4 = stream.GetString(ansi);
    item5 = stream.GetString(ansi);
    amount.Set(stream.GetFloat());
    isBillable = stream.GetByte() != 0;
    isBilled = stream.GetByte() != 0;
    isExported = stream.GetByte() != 0;
    notes = stream.GetString(ansi);
    return !stream.IsBroken();
}
