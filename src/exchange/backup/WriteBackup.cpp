#include "exchange/backup/WriteBackup.h"

#include "changes/CProgress.h"
#include "exchange/backup/CBackupDigest.h"
#include "exchange/backup/CBackupReader.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/ExactRecord.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/SafeFile.h"

#include <QtEndian>
#include <bit>

namespace {

using namespace BackupFormat;

/// So many records are one step of the progress.
constexpr int kRecordsOfStep = 64;

QByteArray Bytes(std::int32_t number) {
    QByteArray bytes(sizeof number, Qt::Uninitialized);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray Bytes(const SYSTEMTIME& time) {
    QByteArray bytes;
    for (const std::uint16_t part : std::bit_cast<std::array<std::uint16_t, 8>>(time)) {
        bytes.append(static_cast<char>(part & 0xFFU));
        bytes.append(static_cast<char>(part >> 8U));
    }
    return bytes;
}

QByteArray Bytes(const QString& text) {
    QByteArray units(text.size() * 2, Qt::Uninitialized);
    qToLittleEndian<char16_t>(text.utf16(), text.size(), units.data());
    return units;
}

/// The file while it is written; what goes into it is hashed on the way.
class CBackupFile {
 public:
    explicit CBackupFile(const QString& path) : m_file(path, FileAudience::OwnerOnly) {}

    [[nodiscard]] bool PutHead(const SYSTEMTIME& time) {
        return m_file.Write(QByteArray(kDigestBytes, '\0')) && Put(Bytes(std::int32_t{200})) &&
               Put(Bytes(kVersion)) && Put(Bytes(time));
    }
    [[nodiscard]] bool PutRecord(const CVORec& record) {
        const QByteArray data = record.ToBytes();
        const QString& id = record.GetId();
        return Put(Bytes(static_cast<std::int32_t>(id.size()))) && Put(Bytes(id)) &&
               Put(Bytes(static_cast<std::int32_t>(data.size()))) && Put(data);
    }
    [[nodiscard]] bool PutEndMark() { return Put(Bytes(kEndMark)); }
    /// The digest comes over the zeros at the front.
    [[nodiscard]] FileOutcome Finish(const CSafeFile::Check& check) {
        // Finish tells what failed.
        static_cast<void>(Pass());
        static_cast<void>(m_file.WriteAt(0, m_digest.Result()));
        return m_file.Finish(check);
    }
    [[nodiscard]] const QString& Error() const { return m_file.Error(); }

 private:
    /// Small pieces are hashed and written together.
    [[nodiscard]] bool Put(QByteArrayView bytes) {
        m_gathered.append(bytes.data(), bytes.size());
        return m_gathered.size() < kGathered || Pass();
    }
    [[nodiscard]] bool Pass() {
        m_digest.Add(m_gathered);
        const bool isWritten = m_file.Write(m_gathered);
        m_gathered.resize(0);
        return isWritten;
    }

    static constexpr qsizetype kGathered = 1 << 16;
    CSafeFile m_file;
    QByteArray m_gathered;
    CBackupDigest m_digest;
};

class CBackupWriter {
 public:
    CBackupWriter(const BackupContext& context, const QString& path) : m_context(context), m_file(path) {}

    BackupOutcome Write(int records) {
        m_outcome.content.time = m_context.clock.GetLocalTime();
        m_context.progress.Begin(FormatText<Text::ProgressBackup>(records), records / kRecordsOfStep + 1);
        const bool isWritten =
            (m_file.PutHead(m_outcome.content.time) || Fail(m_file.Error())) && PutTables();
        m_context.progress.End();
        if (isWritten) Finish();
        return m_outcome;
    }

 private:
    bool Fail(const QString& words) {
        m_outcome.error = words;
        return false;
    }
    [[nodiscard]] bool PutTables() {
        for (std::size_t table = 0; table < kTables.size(); ++table)
            if (!PutTable(kTables[table].kind, m_outcome.content.counts[table])) return false;
        return true;
    }
    [[nodiscard]] bool PutTable(RecordKind kind, int& count) {
        CVOSrcMgr& source = m_context.source.Manager();
        if (!source.Query(m_context.source.Store().SelectAll(kind), false))
            return Fail(FormatText<Text::BackupTableMissing>(source.m_error));
        for (bool found = true;; ++count) {
            const auto record = NewExactRecord(kind);
            if (!source.GetQueryRecord(*record, found, true))
                return Fail(FormatText<Text::BackupRecordUnreadable>(source.m_error));
            if (!found) break;
            if (!m_file.PutRecord(*record)) return Fail(m_file.Error());
            if (!GoesOn()) return false;
        }
        source.CloseQuery();
        return m_file.PutEndMark() || Fail(m_file.Error());
    }
    [[nodiscard]] bool GoesOn() {
        if (++m_done % kRecordsOfStep != 0 || m_context.progress.Advance()) return true;
        m_outcome.isCancelled = true;
        return Fail(LoadText(Text::BackupCancelled));
    }
    /// What was written has to hold what was read, and to be readable.
    void Finish() {
        const auto check = [this](QIODevice& written) {
            const BackupOutcome read = CBackupReader(written, m_context.progress).VerifyParts();
            m_outcome.isCancelled = read.isCancelled;
            if (!read)
                return read.isCancelled ? read.error : FormatText<Text::BackupReadBackFailed>(read.error);
            return read.content == m_outcome.content
                       ? QString()
                       : FormatText<Text::BackupReadBackFailed>(LoadText(Text::BackupDigestDiffers));
        };
        const FileOutcome file = m_file.Finish(check);
        if (!file.written) Fail(file.error);
    }

    BackupContext m_context;
    CBackupFile m_file;
    BackupOutcome m_outcome;
    int m_done = 0;
};

}  // namespace

BackupOutcome WriteBackup(const BackupContext& context, const QString& path, EmptyBackup empty) {
    BackupOutcome outcome;
    const ReadMoment moment(context.source.Manager());
    const auto records = moment.IsOpen() ? context.source.CountRecords() : std::nullopt;
    if (!records) {
        outcome.error = FormatText<Text::BackupTableMissing>(context.source.Manager().m_error);
        return outcome;
    }
    if (*records == 0 && empty == EmptyBackup::Refused) {
        outcome.isEmpty = true;
        outcome.error = LoadText(Text::BackupCancelled);
        return outcome;
    }
    return CBackupWriter(context, path).Write(*records);
}
