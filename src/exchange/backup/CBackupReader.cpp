#include "exchange/backup/CBackupReader.h"

#include "changes/CProgress.h"
#include "exchange/backup/CBackupDigest.h"
#include "exchange/backup/ExactRecord.h"
#include "lang/LoadText.h"
#include "platform/host/CodePage.h"
#include "records/ByteStream.h"
#include "records/RecordFactory.h"

#include <QIODevice>
#include <QtEndian>
#include <algorithm>
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

bool CBackupReader::Seek(qint64 place) {
    m_block.clear();
    m_used = 0;
    m_left = m_file.size() - place;
    return m_file.seek(place);
}

/// What comes next, as the block. A disk that can't give all of it may give the little that is asked for:
/// what fails is told by where it stands.
CBackupReader::Got CBackupReader::ReadBlock(qint64 wanted) {
    const qint64 place = m_file.size() - m_left;
    m_used = 0;
    m_block.resize(kBlock);
    qint64 read = m_file.read(m_block.data(), kBlock);
    if (read < 0 && m_file.seek(place)) read = m_file.read(m_block.data(), std::min(wanted, kBlock));
    m_block.truncate(std::max<qint64>(read, 0));
    if (m_beside) m_beside->Add(m_block);
    return read > 0 ? Got::All : read < 0 ? Got::Failed : Got::Less;
}

/// Less also where the file ends before its size.
CBackupReader::Got CBackupReader::Get(char* bytes, qint64 size) {
    while (size > 0) {
        if (m_used == m_block.size())
            if (const Got got = ReadBlock(size); got != Got::All) return got;
        const qint64 taken = std::min<qint64>(size, m_block.size() - m_used);
        bytes = std::copy_n(m_block.constData() + m_used, taken, bytes);
        m_used += taken;
        m_left -= taken;
        size -= taken;
    }
    return Got::All;
}

/// What is left of the file is known before room is made for it.
CBackupReader::Got CBackupReader::GetBytes(qint64 size, QByteArray& bytes) {
    if (size > m_left) return Got::Less;
    bytes.resize(size);
    return Get(bytes.data(), size);
}

CBackupReader::Got CBackupReader::GetInt(std::int32_t& number) {
    std::array<char, sizeof number> bytes{};
    const Got got = Get(bytes.data(), bytes.size());
    if (got == Got::All) number = qFromLittleEndian<std::int32_t>(bytes.data());
    return got;
}

bool CBackupReader::GoesOn(qint64 bytes) {
    for (m_handled += bytes; m_handled >= kBlock; m_handled -= kBlock) {
        if (m_progress.Advance()) continue;
        m_outcome.isCancelled = true;
        return Fail(Text::BackupCancelled);
    }
    return true;
}

BackupOutcome CBackupReader::VerifyParts() {
    return ReadTo(Depth::Parts, Digest::Beside, LoadText(Text::ProgressVerify), {});
}

BackupOutcome CBackupReader::Read(const QString& what, const Take& take) {
    return ReadTo(Depth::Records, Digest::First, what, take);
}

BackupOutcome CBackupReader::ReadAgain(const QString& what, const Take& take) {
    return ReadTo(Depth::Records, Digest::Beside, what, take);
}

/// From the beginning: a file that stays open is read again.
BackupOutcome CBackupReader::ReadTo(Depth depth, Digest digest, const QString& what, const Take& take) {
    m_depth = depth;
    m_outcome = {};
    m_handled = 0;
    // Where it comes first: once through the digest, once through the records.
    const int passes = digest == Digest::First ? 2 : 1;
    m_progress.Begin(what, static_cast<int>(m_file.size() / kBlock * passes + 1));
    const bool isRead = digest == Digest::First ? ReadWithDigestFirst(take) : ReadWithDigestBeside(take);
    if (!isRead) m_outcome.content = {};
    m_progress.End();
    return m_outcome;
}

bool CBackupReader::ReadContent(const Take& take) {
    if (!ReadHead()) return false;
    for (std::size_t table = 0; table < kTables.size(); ++table)
        if (!ReadTable(kTables[table], m_outcome.content.counts[table], take)) return false;
    return true;
}

// --- The digest

bool CBackupReader::ReadWithDigestFirst(const Take& take) {
    QByteArray stored;
    CBackupDigest digest;
    return ReadStoredDigest(stored) && HashRest(digest) && Compare(digest, stored) &&
           (Seek(kDigestBytes) || Fail(Text::BackupCantSeek)) && ReadContent(take);
}

/// Whatever stands behind the records belongs to the digest, too.
bool CBackupReader::ReadWithDigestBeside(const Take& take) {
    QByteArray stored;
    if (!ReadStoredDigest(stored)) return false;
    CBackupDigest digest;
    digest.Add(QByteArrayView(m_block).sliced(m_used));
    m_beside = &digest;
    bool isRead = ReadContent(take);
    Got got = Got::All;
    while (isRead && got == Got::All) {
        m_left -= m_block.size() - m_used;
        got = ReadBlock(kBlock);
    }
    m_beside = nullptr;
    return isRead && (got == Got::Less || Fail(Text::BackupCantRead)) && Compare(digest, stored);
}

bool CBackupReader::ReadStoredDigest(QByteArray& stored) {
    if (!Seek(0)) return Fail(Text::BackupCantRead);
    return Follow(GetBytes(kDigestBytes, stored), Text::BackupCantRead, Text::BackupLacksDigest);
}

bool CBackupReader::HashRest(CBackupDigest& digest) {
    for (;;) {
        const QByteArrayView rest = QByteArrayView(m_block).sliced(m_used);
        digest.Add(rest);
        if (!GoesOn(rest.size())) return false;
        m_left -= rest.size();
        const Got got = ReadBlock(kBlock);
        if (got != Got::All) return got == Got::Less || Fail(Text::BackupCantRead);
    }
}

bool CBackupReader::Compare(CBackupDigest& digest, const QByteArray& stored) {
    return digest.Result() == stored || Fail(Text::BackupDigestDiffers);
}

// --- The head

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
    m_items = static_cast<int>(FieldDefsOf(table.kind).size()) - 1;  // all but the identity
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
    if (!Follow(GetInt(size), Text::BackupRecordNotRead, Text::BackupSizeCut) ||
        !Follow(GetBytes(static_cast<std::uint32_t>(size), m_data), Text::BackupRecordNotRead,
                Text::BackupDataCut))
        return false;
    return TakeData(table, id, take) && GoesOn(m_data.size() + id.size() * 2 + 8);
}

bool CBackupReader::TakeData(const TableRow& table, const QString& id, const Take& take) {
    const bool isPlain = table.kind == RecordKind::Time || table.kind == RecordKind::Expense;
    if (m_depth == Depth::Parts && isPlain)
        return ByteStream::HoldsItems(m_data, m_items) || FailIn(table.className);
    const auto record = NewExactRecord(table.kind, m_isPacked);
    if (!record->FromBytes(m_data, false)) return FailIn(table.className);
    record->SetId(MeantIdentity(id));
    if (id.isEmpty()) record->GenUnique();
    if (take) m_outcome.error = take(*record);
    return m_outcome.error.isEmpty();
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
