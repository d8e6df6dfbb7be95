#include "records/CERecord.h"

#include "calendar/NumberText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/ByteStream.h"
#include "records/Precisions.h"
#include "records/RowAccess.h"

namespace {

using enum Text;

constexpr FieldDef kFields[] = {
    FieldDef::Int(ColumnMonth),        FieldDef::Int(ColumnDay),           FieldDef::Int(ColumnYear),
    FieldDef::Str(ColumnItem1),        FieldDef::Str(ColumnItem2),         FieldDef::Str(ColumnExpenseItem3),
    FieldDef::Int(ColumnIsDistance),   FieldDef::Str(ColumnDistance),      FieldDef::Real(ColumnDistanceRate),
    FieldDef::Str(ColumnExpenseItem4), FieldDef::Str(ColumnItem5),         FieldDef::Real(ColumnAmount),
    FieldDef::Int(ColumnBillable),     FieldDef::Int(ColumnBilled),        FieldDef::Int(ColumnFlag3),
    FieldDef::Int(ColumnFlag4),        FieldDef::Int(ColumnFlag5),         FieldDef::Int(ColumnExported),
    FieldDef::Long(ColumnNotes),       FieldDef::Str(ColumnOdometerStart), FieldDef::Str(ColumnOdometerEnd),
    FieldDef::Key(ColumnIdentity),
};

template <class Row>
void Take(Row& row, CERecord& record) {
    const int month = row.Int();
    const int day = row.Int();
    record.date.Set(month, day, row.Int());
    record.item1 = row.Text();
    record.item2 = row.Text();
    record.item3 = row.Text();
    record.isDistance = row.Flag();
    record.TakeStoredDistance(row.Text());
    record.rate.Set(row.Float());
    record.item4 = row.Text();
    record.item5 = row.Text();
    record.amount.Set(row.Float());
    for (bool* flag :
         {&record.flag1, &record.flag2, &record.flag3, &record.flag4, &record.flag5, &record.isExported})
        *flag = row.Flag();
    record.notes = row.LongText();
    record.odometerStart = row.Text();
    record.odometerEnd = row.Text();
    record.SetId(row.Key());
}

}  // namespace

CERecord::CERecord() {
    const CPrecisionSource& precisions = ThePrecisions();
    distance.precision = precisions.DistancePrecision();
    amount.precision = precisions.AmountPrecision();
    amount.SetNone();
    rate.precision = precisions.RatePrecision();
    rate.SetNone();
}

void CERecord::Reset() {
    *this = CERecord();
}

float CERecord::GetDistance() const {
    return distance.isSet ? distance.value : 0.0F;
}

void CERecord::TakeStoredDistance(const QString& text) {
    float value = 0.0F;
    if (ParseFloat(TheRegion(), text, value)) distance.Set(value);
    KeepDistanceRead(text);
}

void CERecord::KeepDistanceRead(const QString& text) {
    distance.isAsRead = !text.isEmpty() && text != distance.text;
    m_distanceRead = distance.isAsRead ? text : QString();
}

bool CERecord::IsDistanceReadWhole() const {
    return !distance.isAsRead || ReadsWhole(TheRegion(), m_distanceRead);
}

void CERecord::Copy(const CERecord& other) {
    SetId(other.GetId());
    date.Copy(other.date);
    item1 = other.item1;
    item2 = other.item2;
    item3 = other.item3;
    item4 = other.item4;
    item5 = other.item5;
    odometerStart = other.odometerStart;
    odometerEnd = other.odometerEnd;
    notes = other.notes;
    isDistance = other.isDistance;
    // Copying the field alone would set it: an expense without distance would be stored with "0.00".
    if (other.distance.isSet)
        distance.Copy(other.distance);
    else
        distance.Reset();
    KeepDistanceRead(other.StoredDistance());
    rate.Copy(other.rate);
    amount.Copy(other.amount);
    flag1 = other.flag1;
    flag2 = other.flag2;
    flag3 = other.flag3;
    flag4 = other.flag4;
    flag5 = other.flag5;
    isExported = other.isExported;
}

std::span<const FieldDef> CERecord::GetFieldDefs() const {
    return kFields;
}

bool CERecord::WriteFields(CVORecordset& row) const {
    RowWriter out(row, kFields);
    out.PutInt(date.month);
    out.PutInt(date.day);
    out.PutInt(date.year);
    out.PutText(item1);
    out.PutText(item2);
    out.PutText(item3);
    out.PutFlag(isDistance);
    out.PutText(StoredDistance());
    out.PutFloat(rate.value);
    out.PutText(item4);
    out.PutText(item5);
    out.PutFloat(amount.value);
    for (const bool flag : {flag1, flag2, flag3, flag4, flag5, isExported}) out.PutFlag(flag);
    out.PutText(notes);
    out.PutText(odometerStart);
    out.PutText(odometerEnd);
    out.PutText(GetId());
    return out.AllSet();
}

bool CERecord::Load(const RowTable& rows, std::size_t row) {
    TableRow source(rows, row);
    if (!source.Fits(kFields)) return false;
    Take(source, *this);
    return true;
}

bool CERecord::ReadFields(CVORecordset& row) {
    RecordsetRow source(row);
    Take(source, *this);
    return true;
}

bool CERecord::ToBytes(QByteArray& out) const {
    ByteStream stream;
    stream.PutInt(date.month);
    stream.PutInt(date.day);
    stream.PutInt(date.year);
    for (const QString* text : {&item1, &item2, &item3, &odometerStart, &odometerEnd})
        stream.PutString(*text);
    stream.PutByte(isDistance);
    stream.PutString(StoredDistance());
    stream.PutFloat(rate.value);
    stream.PutString(item4);
    stream.PutString(item5);
    stream.PutFloat(amount.value);
    for (const bool flag : {flag1, flag2, flag3, flag4, flag5, isExported}) stream.PutByte(flag);
    stream.PutString(notes);
    out = stream.Release();
    return true;
}

bool CERecord::FromBytes(const QByteArray& bytes, bool ansi) {
    if (bytes.isNull()) return false;
    ByteStream stream;
    stream.Attach(bytes);
    const int month = stream.GetInt();
    const int day = stream.GetInt();
    date.Set(month, day, stream.GetInt());
    for (QString* text : {&item1, &item2, &item3, &odometerStart, &odometerEnd})
        *text = stream.GetString(ansi);
    isDistance = stream.GetByte() != 0;
    TakeStoredDistance(stream.GetString(ansi));
    rate.Set(stream.GetFloat());
    item4 = stream.GetString(ansi);
    item5 = stream.GetString(ansi);
    amount.Set(stream.GetFloat());
    for (bool* flag : {&flag1, &flag2, &flag3, &flag4, &flag5, &isExported}) *flag = stream.GetByte() != 0;
    notes = stream.GetString(ansi);
    return !stream.IsBroken();
}

std::unique_ptr<CVORec> CERecord::Clone() const {
    auto copy = std::make_unique<CERecord>();
    copy->Copy(*this);
    return copy;
}
