#include "records/CDRecord.h"

#include "lang/LoadText.h"
#include "records/ByteStream.h"
#include "records/GuardedBlock.h"
#include "records/RowAccess.h"
#include "records/RunPack.h"

#include <optional>

namespace {

using enum Text;

constexpr FieldDef kFields[] = {
    FieldDef::Int(ColumnSetNumber),
    FieldDef::Long(ColumnBlock),
    FieldDef::Key(ColumnIdentity),
};

constexpr int kNumberColumn = 0;
constexpr int kBlockColumn = 1;
constexpr int kIdentityColumn = 2;
/// More than any row can hold, packed as tightly as can be.
constexpr qsizetype kMaxUnpacked = 1 << 20;

/// The data as they are stored: packed or not.
QByteArray Content(const CDRecord& record) {
    return record.isPacked ? RunPack(record.data) : record.data;
}

/// False when packed groups don't fit together.
bool TakeContent(const QByteArray& content, CDRecord& record) {
    const std::optional<QByteArray> plain = record.isPacked ? RunUnpack(content, kMaxUnpacked) : content;
    if (plain) record.data = *plain;
    return plain.has_value();
}

bool Refuse(CVORecordset& row, int code, Text first, Text second, Text third) {
    row.m_errorCode = code;
    row.m_errorTexts = {LoadText(first), LoadText(second), LoadText(third)};
    return false;
}

}  // namespace

std::span<const FieldDef> CDRecord::GetFieldDefs() const {
    return kFields;
}

bool CDRecord::WriteFields(CVORecordset& row) const {
    const QString block = BlockText(Content(*this));
    if (block.size() > kLongTextLength)
        return Refuse(row, RowError::kTooLong, BlockTooLong, BlockTooLong, BlockTooLong);
    RowWriter out(row, kFields);
    out.PutInt(number);
    out.PutText(block);
    out.PutText(GetId());
    return out.AllSet();
}

bool CDRecord::ReadFields(CVORecordset& row) {
    number = row.GetFieldValueString(kNumberColumn).toInt();
    QByteArray content;
    switch (ReadBlockText(row.GetFieldValueString(kBlockColumn), content)) {
        case BlockState::BadEncoding:
            return Refuse(row, RowError::kBadEncoding, BadBlockTitle, BadBlockEncoding, BadBlockAdvice);
        case BlockState::BadDigest:
            return Refuse(row, RowError::kBadDigest, BadBlockTitle, BadBlockDigest, BadBlockAdvice);
        case BlockState::TooShort:
            return false;
        case BlockState::Sound:
            break;
    }
    if (!TakeContent(content, *this)) return false;
    SetId(row.GetFieldValueString(kIdentityColumn));
    return true;
}

QByteArray CDRecord::ToBytes() const {
    ByteStream stream;
    stream.PutInt(number);
    stream.PutBuffer(Guarded(Content(*this)));
    return stream.Release();
}

bool CDRecord::FromBytes(const QByteArray& bytes, bool) {
    if (bytes.isNull()) return false;
    ByteStream stream;
    stream.Attach(bytes);
    number = stream.GetInt();
    QByteArray block;
    QByteArray content;
    return stream.GetBuffer(block) && Unguard(block, content) == BlockState::Sound &&
           TakeContent(content, *this);
}

std::unique_ptr<CVORec> CDRecord::Clone() const {
    return std::make_unique<CDRecord>(*this);
}
