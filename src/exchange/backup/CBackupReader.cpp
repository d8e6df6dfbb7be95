#include "exchange/backup/CBackupReader.h"

#include "changes/CProgress.h"
#include "exchange/backup/ExactRecord.h"
#include "lang/LoadText.h"
#include "platform/host/CodePage.h"

#include <QCryptographicHash>
#include <QIODevice>
#include <QtEndian>
#include <array>
#include <bit>

using namespace BackupFormat;

namespace {

/// What is read at once for the digest, and one step of the progress.
constexpr qint64 kBlock = 1 << 16;

}  // namespace

bool CBackupReader::Fail(Text reason) {
    m_outcome.error = LoadText(reason);
    return false;
}

bool CBackupReader::FailIn(const char* className) {
    m_outcome.error =
        LoadText(Text::BackupRecordBad) + QString::fromLatin1(className) + LoadText(Text::BackupRecordBadEnd);
    return false;
}

bool CBackupReader::Follow(Got got, Text failed, Text less) {
    return got == Got::All || Fail(got == Got::Failed ? failed : less);
}

/// What is left of the file is known before room is made for it.
CBackupReader::Got CBackupReader::GetBytes(qint64 size, QByteArray& bytes) {
    if (size > m_size - m_file.pos()) return Got::Less;
    bytes.resize(size);
    const qint64 read = m_file.read(bytes.data(), size);
    return read == size ? Got::All : read < 0 ? Got::Failed : Got::Less;
}

CBackupReader::Got CBackupReader::GetInt(std::int32_t& number) {
    std::array<char, sizeof number> bytes{};
    const qint64 read = m_file.read(bytes.data(), bytes.size());
    if (read != bytes.size()) return read < 0 ? Got::Failed : Got::Less;
    number = qFromLittleEndian<std::int32_t>(bytes.data());
    return Got::All;
}

bool CBackupReader::GoesOn(qint64 bytes) {
    for (m_handled += bytes; m_handled >= kBlock; m_handled -= kBlock) {
        if (m_progress.Advance()) continue;
        m_outcome.isCancelled = true;
        return Fail(Text::BackupCancelled);
    }
    return true;
}

BackupOutcome CBackupReader::Verify() {
    return Read(LoadText(Text::ProgressVerify), {});
}

BackupOutcome CBackupReader::Read(const QString& what, const Take& take) {
    m_outcome = {};
    m_handled = 0;
    m_size = m_file.size();
    // Once through the digest, once through the records.
    m_progress.Begin(what, static_cast<int>(m_size / kBlock * 2 + 1));
    if (!ReadAll(take)) m_outcome.content = {};
    m_progress.End();
    return m_outcome;
}

/// From the beginning: a file that stays open is read again.
bool CBackupReader::ReadAll(const Take& take) {
    if (!m_file.seek(0)) return Fail(Text::BackupCantRead);
    if (!CompareDigest() || !ReadHead()) return false;
    for (std::size_t table = 0; table < kTables.size(); ++table)
        if (!ReadTable(kTables[table], m_outcome.content.counts[table], take)) return false;
    return true;
}

// --- The head

bool CBackupReader::CompareDigest() {
    QByteArray stored, digest;
    return Follow(GetBytes(kDigestBytes, stored), Text::BackupCantRead, Text::BackupLacksDigest) &&
           HashRest(digest) && (digest == stored || Fail(Text::BackupDigestDiffers)) &&
           (m_file.seek(kDigestBytes) || Fail(Text::BackupCantSeek));
}

bool CBackupReader::HashRest(QByteArray& digest) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    QByteArray block(kBlock, Qt::Uninitialized);
    for (qint64 read = 0; (read = m_file.read(block.data(), kBlock)) != 0;) {
        if (read < 0) return Fail(Text::BackupCantRead);
        hash.addData(QByteArrayView(block).first(read));
        if (!GoesOn(read)) return false;
    }
    digest = hash.result();
    return true;
}

bool CBackupReader::ReadHead() {
    std::int32_t version = 0;
    if (!ReadForm() || !Follow(GetInt(version), Text::BackupCantRead, Text::BackupHeadCut)) return false;
    if (version != kPackedVersion && version != kVersion) return Fail(Text::BackupVersionUnknown);
    m_isPacked = version == kPackedVersion;
    return ReadTime();
}

bool CBackupReader::ReadForm() {
    std::int32_t form = 0;
    if (!Follow(GetInt(form), Text::BackupCantRead, Text::BackupHeadCut)) return false;
    m_form = TextForm{form};
    return m_form == TextForm::Wide || m_form == TextForm::Bytes || Fail(Text::BackupFormUnknown);
}

bool CBackupReader::ReadTime() {
    QByteArray bytes;
    if (!Follow(GetBytes(sizeof(SYSTEMTIME), bytes), Text::BackupCantRead, Text::BackupHeadCut)) return false;
    std::array<std::uint16_t, 8> parts{};
    qFromLittleEndian<std::uint16_t>(bytes.constData(), parts.size(), parts.data());
    m_outcome.content.time = std::bit_cast<SYSTEMTIME>(parts);
    return true;
}

// --- The records

bool CBackupReader::ReadTable(const TableRow& table, int& count, const Take& take) {
    for (;; ++count) {
        std::int32_t idLength = 0;
        if (!Follow(GetInt(idLength), Text::BackupRecordNotRead, Text::BackupEndMissing)) return false;
        if (idLength == kEndMark) return true;
        if (!ReadRecord(table, idLength, take)) return false;
    }
}

bool CBackupReader::ReadRecord(const TableRow& table, std::int32_t idLength, const Take& take) {
    QString id;
    if (idLength > 0 && !ReadId(idLength, id)) return false;
    std::int32_t size = 0;
    QByteArray data;
    if (!Follow(GetInt(size), Text::BackupRecordNotRead, Text::BackupSizeCut) ||
        !Follow(GetBytes(static_cast<std::uint32_t>(size), data), Text::BackupRecordNotRead,
                Text::BackupDataCut))
        return false;
    const auto record = NewExactRecord(table.kind, m_isPacked);
    if (!record->FromBytes(data, false)) return FailIn(table.className);
    record->SetId(MeantIdentity(id));
    if (id.isEmpty()) record->GenUnique();
    if (take) m_outcome.error = take(*record);
    return m_outcome.error.isEmpty() && GoesOn(data.size() + id.size() * 2 + 8);
}

/// A negative length below the end mark's is no length: no identity follows.
bool CBackupReader::ReadId(std::int32_t length, QString& id) {
    const bool isWide = m_form == TextForm::Wide;
    QByteArray bytes;
    const Got got = GetBytes(qint64{length} * (isWide ? 2 : 1), bytes);
    if (!Follow(got, Text::BackupRecordNotRead, Text::BackupIdCut)) return false;
    if (!isWide) {
        id = FromCodePage(bytes);
        return !id.contains(QChar::ReplacementCharacter) || Fail(Text::BackupIdCut);
    }
    id.resize(length);
    qFromLittleEndian<char16_t>(bytes.constData(), length, id.data());
    return true;
}
