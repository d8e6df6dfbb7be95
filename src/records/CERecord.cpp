#include "records/CERecord.h"

#include "calendar/NumberText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/MemberColumns.h"
#include "records/Precisions.h"
#include "records/StoredMembers.h"

namespace {

using enum Text;

using namespace Stored;

/// Stored as its text.
struct Distance {
    static constexpr auto kMember = &CERecord::distance;
    int place;
    [[nodiscard]] static constexpr std::array<FieldDef, 1> Defs() { return {FieldDef::Str(ColumnDistance)}; }
    static void Put(const CERecord& record, RowWriter& out) { out.PutText(record.StoredDistance()); }
    static void Put(const CERecord& record, ByteStream& out) { out.PutString(record.StoredDistance()); }
    static void TakeRow(CERecord& record, auto& row) { record.TakeStoredDistance(row.Text()); }
    static void TakeBytes(CERecord& record, ByteStream& stream, bool ansi) {
        record.TakeStoredDistance(stream.GetString(ansi));
    }
    static void Copy(CERecord& record, const CERecord& other) { record.CopyDistance(other); }
};

constexpr std::tuple kMembers = {
    Day<&CERecord::date>{ColumnMonth, ColumnDay, ColumnYear, 1},
    Item<&CERecord::item1>{ColumnItem1, 2},
    Item<&CERecord::item2>{ColumnItem2, 3},
    Item<&CERecord::item3>{ColumnExpenseItem3, 4},
    Flag<&CERecord::isDistance>{ColumnIsDistance, 7},
    Distance{8},
    Money<&CERecord::rate>{ColumnDistanceRate, 9},
    Item<&CERecord::item4>{ColumnExpenseItem4, 10},
    Item<&CERecord::item5>{ColumnItem5, 11},
    Money<&CERecord::amount>{ColumnAmount, 12},
    Flag<&CERecord::flag1>{ColumnBillable, 13},
    Flag<&CERecord::flag2>{ColumnBilled, 14},
    Flag<&CERecord::flag3>{ColumnFlag3, 15},
    Flag<&CERecord::flag4>{ColumnFlag4, 16},
    Flag<&CERecord::flag5>{ColumnFlag5, 17},
    Flag<&CERecord::isExported>{ColumnExported, 18},
    Stored::LongText<&CERecord::notes>{ColumnNotes, 19},
    Item<&CERecord::odometerStart>{ColumnOdometerStart, 5},
    Item<&CERecord::odometerEnd>{ColumnOdometerEnd, 6},
    Identity{},
};
constexpr auto kFields = Stored::FieldDefsOf(kMembers);

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

void CERecord::CopyDistance(const CERecord& other) {
    // Copying the field alone would set it: an expense without distance would be stored with "0.00".
    if (other.distance.isSet)
        distance.Copy(other.distance);
    else
        distance.Reset();
    KeepDistanceRead(other.StoredDistance());
}

bool CERecord::IsDistanceReadWhole() const {
    return !distance.isAsRead || ReadsWhole(TheRegion(), m_distanceRead);
}

void CERecord::Copy(const CERecord& other) {
    Stored::Copy<kMembers>(*this, other);
}

ColumnSet ColumnsOf(QString CERecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

ColumnSet ColumnsOf(bool CERecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

ColumnSet ColumnsOf(DecimalField CERecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

ColumnSet ColumnsOf(RecordDate CERecord::*member) {
    return Stored::ColumnsOf<kMembers>(member);
}

/// A distance that can't be read leaves the number as it is, so it must not be that of the row before.
void LoadExpenseColumns(CERecord& record, const RowTable& rows, std::size_t row, ColumnSet columns) {
    record.distance.Reset();
    TableRow source(rows, row);
    Stored::TakeColumns<kMembers>(record, source, columns);
}

Text CERecord::ColumnOf(QString CERecord::*item) {
    return Stored::ColumnOf<kMembers>(item);
}

std::span<const FieldDef> CERecord::GetFieldDefs() const {
    return kFields;
}

bool CERecord::WriteFields(CVORecordset& row) const {
    return Stored::Write<kMembers>(*this, row, kFields);
}

bool CERecord::Load(const RowTable& rows, std::size_t row) {
    TableRow source(rows, row);
    if (!source.Fits(kFields)) return false;
    Stored::TakeRow<kMembers>(*this, source);
    return true;
}

bool CERecord::ReadFields(CVORecordset& row) {
    RecordsetRow source(row);
    Stored::TakeRow<kMembers>(*this, source);
    return true;
}

QByteArray CERecord::ToBytes() const {
    return Stored::Bytes<kMembers>(*this);
}

bool CERecord::FromBytes(const QByteArray& bytes, bool ansi) {
    return Stored::TakeBytes<kMembers>(*this, bytes, ansi);
}

std::unique_ptr<CVORec> CERecord::Clone() const {
    auto copy = std::make_unique<CERecord>();
    copy->Copy(*this);
    return copy;
}
