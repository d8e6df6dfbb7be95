#include "records/CDRecord.h"

#include "lang/LoadText.h"
#include "records/ByteStream.h"
#include "records/RowAccess.h"
#include "records/RunPack.h"

#include <QCryptographicHash>
#include <algorithm>
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
constexpr qsizetype kDigestSize = 16;
/// More than any row can hold, packed as tightly as can be.
constexpr qsizetype kMaxUnpacked = 1 << 20;

QByteArray Md5(QByteArrayView bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
}

/// The data as it is stored, packed or not, with its digest in front.
QByteArray Guarded(const CDRecord& record) {
    const QByteArray content = record.isPacked ? RunPack(record.data) : record.data;
    return Md5(content) + content;
}

enum class BlockState { Sound, TooShort, DigestDiffers };

BlockState CheckGuarded(QByteArrayView block) {
    if (block.size() < kDigestSize) return BlockState::TooShort;
    return QByteArrayView(Md5(block.sliced(kDigestSize))) == block.first(kDigestSize)
               ? BlockState::Sound
               : BlockState::DigestDiffers;
}

/// The data of a sound block. False when its groups don't fit together.
bool Unguard(const QByteArray& block, bool isPacked, QByteArray& data) {
    const QByteArray content = block.sliced(kDigestSize);
    const std::optional<QByteArray> plain = isPacked ? RunUnpack(content, kMaxUnpacked) : content;
    if (plain) data = *plain;
    return plain.has_value();
}

/// Bytes from upper-case hexadecimal digits; nothing for any other text.
std::optional<QByteArray> FromHex(const QString& text) {
    const bool isHex = text.size() % 2 == 0 && std::all_of(text.begin(), text.end(), [](QChar c) {
                           return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
                       });
    if (!isHex) return std::nullopt;
    return QByteArray::fromHex(text.toLatin1());
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
    const QString block = QString::fromLatin1(Guarded(*this).toHex().toUpper());
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
    const std::optional<QByteArray> block = FromHex(row.GetFieldValueString(kBlockColumn));
    if (!block) return Refuse(row, RowError::kBadEncoding, BadBlockTitle, BadBlockEncoding, BadBlockAdvice);
    const BlockState state = CheckGuarded(*block);
    if (state == BlockState::DigestDiffers)
        return Refuse(row, RowError::kBadDigest, BadBlockTitle, BadBlockDigest, BadBlockAdvice);
    if (state != BlockState::Sound || !Unguard(*block, isPacked, data)) return false;
    SetId(row.GetFieldValueString(kIdentityColumn));
    return true;
}

bool CDRecord::ToBytes(QByteArray& out) const {
    ByteStream stream;
    stream.PutInt(number);
    stream.PutBuffer(Guarded(*this));
    out = stream.Release();
    return true;
}

bool CDRecord::FromBytes(const QByteArray& bytes, bool) {
    if (bytes.isNull()) return false;
    ByteStream stream;
    stream.Attach(bytes);
    number = stream.GetInt();
    QByteArray block;
    return stream.GetBuffer(block) && CheckGuarded(block) == BlockState::Sound &&
           Unguard(block, isPacked, data);
}

std::unique_ptr<CVORec> CDRecord::Clone() const {
    return std::make_unique<CDRecord>(*this);
}
