#include "records/CPRecord.h"

#include "calendar/NumberText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/ByteStream.h"
#include "records/RowAccess.h"

namespace {

using enum Text;

constexpr FieldDef kFields[] = {
    FieldDef::Int(ColumnListId),      FieldDef::Int(ColumnValueType), FieldDef::Str(ColumnItemText),
    FieldDef::Real(ColumnItemNumber), FieldDef::Key(ColumnIdentity),
};

constexpr int kTextType = static_cast<int>(CPRecord::ValueType::Text);
constexpr int kNumberType = static_cast<int>(CPRecord::ValueType::Number);

QString SixDigits(float number) {
    return FormatNumber(TheRegion(), static_cast<double>(number), -1);
}

/// Empties the value, so that the setters take any kind.
void ClearValue(CPRecord& record) {
    record.valueType = CPRecord::ValueType::None;
    record.text.clear();
    record.number = 0.0F;
}

/// A stored type; an item of no type is stored as a text.
int StoredType(const CPRecord& record) {
    return record.valueType == CPRecord::ValueType::Number ? kNumberType : kTextType;
}

/// The text is read without the cache of shared texts: hardly two items show the same.
template <class Row>
void Take(Row& row, CPRecord& record) {
    record.listId = row.Int();
    const int type = row.Int();
    const QString text = row.LongText();
    const float number = row.Float();
    ClearValue(record);
    if (type == kNumberType)
        record.SetNumber(number);
    else
        record.SetText(type == kTextType ? text : QString());
    record.SetId(row.Key());
}

}  // namespace

CPRecord::CPRecord(const QString& value) {
    SetText(value);
}

CPRecord::CPRecord(float value) {
    SetNumber(value);
}

void CPRecord::SetText(const QString& value) {
    if (valueType != ValueType::Number) {
        text = value;
        valueType = ValueType::Text;
        return;
    }
    float read = 0.0F;
    if (ParseFloat(TheRegion(), value, read)) number = read;
}

void CPRecord::SetNumber(float value) {
    if (valueType == ValueType::Text) {
        SetText(SixDigits(value));
        return;
    }
    number = value;
    valueType = ValueType::Number;
}

QString CPRecord::GetText() const {
    switch (valueType) {
        case ValueType::Text:
            return text;
        case ValueType::Number:
            return SixDigits(number);
        case ValueType::None:
            break;
    }
    return {};
}

std::span<const FieldDef> CPRecord::GetFieldDefs() const {
    return kFields;
}

bool CPRecord::WriteFields(CVORecordset& row) const {
    const bool isNumber = valueType == ValueType::Number;
    RowWriter out(row, kFields);
    out.PutInt(listId);
    out.PutInt(StoredType(*this));
    out.PutText(isNumber ? QString() : text);
    out.PutFloat(isNumber ? number : 0.0F);
    out.PutText(GetId());
    return out.AllSet();
}

bool CPRecord::Load(const RowTable& rows, std::size_t row) {
    TableRow source(rows, row);
    if (!source.Fits(kFields)) return false;
    Take(source, *this);
    return true;
}

bool CPRecord::ReadFields(CVORecordset& row) {
    RecordsetRow source(row);
    Take(source, *this);
    return true;
}

QByteArray CPRecord::ToBytes() const {
    ByteStream stream;
    stream.PutInt(StoredType(*this));
    if (valueType == ValueType::Number)
        stream.PutFloat(number);
    else
        stream.PutString(text);
    stream.PutInt(listId);
    return stream.Release();
}

bool CPRecord::FromBytes(const QByteArray& bytes, bool ansi) {
    if (bytes.isNull()) return false;
    ByteStream stream;
    stream.Attach(bytes);
    const int type = stream.GetInt();
    if (type != kTextType && type != kNumberType) return false;
    ClearValue(*this);
    if (type == kTextType)
        SetText(stream.GetStringInto(kTextLength, ansi));
    else
        SetNumber(stream.GetFloat());
    listId = stream.GetInt();
    return !stream.IsBroken();
}

std::unique_ptr<CVORec> CPRecord::Clone() const {
    return std::make_unique<CPRecord>(*this);
}
