#include "exchange/backup/CRestore.h"

#include "exchange/backup/BackupTexts.h"
#include "exchange/backup/CBackupReader.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/DatedBackups.h"
#include "exchange/backup/WriteBackup.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/CPrompt.h"
#include "platform/host/ErrorText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CTRecord.h"
#include "records/CVORecordset.h"
#include "records/NamedChange.h"

#include <QFileInfo>
#include <cerrno>
#include <optional>

namespace {

/// The times and the expenses are deleted twice, which is wanted and harmless.
constexpr RecordKind kEmptied[] = {RecordKind::Time,    RecordKind::Time,         RecordKind::Expense,
                                   RecordKind::Expense, RecordKind::PulldownItem, RecordKind::Dependency};

constexpr int kSafetyCopies = 5;

QString SafetyCopyName(const SYSTEMTIME& time) {
    return FormatText<Text::SafetyCopyName>(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute,
                                            time.wSecond);
}

/// Puts the records of a backup into their tables as they come: all of one table, then all of the next.
class CTableFiller {
 public:
    explicit CTableFiller(CSecondSource& source) : m_source(source), m_bulk(source.Manager()) {}

    [[nodiscard]] QString Put(CVORec& record) {
        if (m_kind != record.Kind() && !Turn(record.Kind())) return LoadText(Text::RestoreTableNotOpen);
        return EndOf(m_source.Manager().Insert(record));
    }
    /// Behind the last record.
    [[nodiscard]] QString Finish() { return EndOf(m_source.Manager().Settle()); }

 private:
    [[nodiscard]] QString EndOf(bool isDone) {
        const CVOSrcMgr& manager = m_source.Manager();
        return isDone ? QString() : InsertFailure(manager.m_errorCode, manager.m_error);
    }
    [[nodiscard]] bool Turn(RecordKind kind) {
        m_kind = kind;
        return m_source.Manager().Query(m_source.Store().SelectAll(kind) + LoadText(Text::SqlNoRows), true);
    }

    CSecondSource& m_source;
    CVOSrcMgr::Bulk m_bulk;
    std::optional<RecordKind> m_kind;
};

}  // namespace

/// Why the file can't be opened; empty when it is open. A pipe would be waited for, and could not be read
/// twice.
QString CRestore::OpenFile(const QString& path) {
    m_file.setFileName(path);
    const QFileInfo file(path);
    const bool mayBeOpened = file.isFile() || !file.exists();
    if (mayBeOpened && m_file.open(QIODevice::ReadOnly)) return {};
    const QString why = mayBeOpened    ? m_file.errorString()
                        : file.isDir() ? ErrorText(EISDIR)
                                       : LoadText(Text::BackupNoPlainFile);
    return LoadText(Text::BackupCantOpen) + u' ' + why;
}

/// A record that the store would refuse is met here already, and in the same words.
BackupOutcome CRestore::Verify(const QString& path) {
    BackupOutcome outcome;
    outcome.error = OpenFile(path);
    if (!outcome) return outcome;
    CVORecordset row;
    const auto objection = [&row](CVORec& record) {
        return row.TakeRecord(record) ? QString() : InsertFailure(row.m_errorCode, row.Words());
    };
    outcome = CBackupReader(m_file, m_context.progress).Read(LoadText(Text::ProgressVerify), objection);
    m_verified = outcome.content;
    return outcome;
}

bool CRestore::Ask(Text question, const QString& words, Text title) {
    return m_context.prompt.Ask({.textId = static_cast<int>(question),
                                 .title = LoadText(title),
                                 .text = words,
                                 .icon = BoxIcon::Warning,
                                 .buttons = Buttons::YesNo,
                                 .defaultAnswer = Answer::No,
                                 .actionLabel = LoadText(title)}) == Answer::Yes;
}

bool CRestore::IsConfirmed() {
    return Ask(Text::AskRestore,
               FormatText<Text::AskRestore>(m_file.fileName(), BackupDateText(m_verified.time),
                                            m_verified.Total()),
               Text::AskRestoreTitle) &&
           Ask(Text::AskRestoreSure, LoadText(Text::AskRestoreSure), Text::AskRestoreSureTitle);
}

namespace {

/// Timers of records that the backup doesn't have.
void NoteTimersThatGo(CRecordStore& store, CStoreJournal* journal, const QHash<QString, QByteArray>& timers) {
    for (auto timer = timers.cbegin(); journal && timer != timers.cend(); ++timer) {
        CTRecord record;
        if (!store.ReadRecord(record, timer.key()) && store.m_lastError == 0)
            journal->NoteTimer(timer.key(), timer.value());
    }
}

}  // namespace

RestoreOutcome CRestore::Run(const QString& home, CStoreJournal* journal,
                             const QHash<QString, QByteArray>& timers) {
    RestoreOutcome outcome;
    CSecondSource source(home, m_context.prompt);
    CVOSrcMgr& manager = source.Manager();
    if (!source.Open()) {
        outcome.error = FormatText<Text::BackupSettingUp>(manager.m_error);
        return outcome;
    }
    manager.SetJournal(journal);
    const NamedChange named(source.Store(), ChangeKind::Restore);
    const QString copy = NewDatedBackup(home, SafetyCopyName(m_context.clock.GetLocalTime()));
    // From here on nobody else stores anything: what is saved in the copy is what is deleted.
    outcome.error = manager.BeginBatch()
                        ? Replace(source, copy, outcome)
                        : LoadText(Text::RestoreTableNotOpen) + QStringLiteral(" ") + manager.m_error;
    if (outcome) NoteTimersThatGo(source.Store(), journal, timers);
    if (outcome && !manager.Update())
        outcome.error = LoadText(Text::RestoreNotCommitted) + QStringLiteral(" ") + manager.m_error;
    manager.Discard();
    outcome.isUnconfirmed = outcome && manager.IsUnconfirmed();
    if (outcome && !outcome.safetyCopy.isEmpty())
        KeepNewestBackups(home, QStringLiteral("before-restore-"), kSafetyCopies, copy);
    TellOfJournal(journal);
    return outcome;
}

/// The records are those of the backup, whether that can be undone or not.
void CRestore::TellOfJournal(CStoreJournal* journal) {
    const QString notice = journal ? journal->TakeNotice() : QString();
    if (notice.isEmpty()) return;
    m_context.prompt.Tell({.textId = static_cast<int>(Text::HistoryTitle),
                           .title = LoadText(Text::StoreFailureTitle),
                           .text = LoadText(Text::HistoryTitle) + QStringLiteral(": ") + notice,
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}

QString CRestore::Replace(CSecondSource& source, const QString& copy, RestoreOutcome& outcome) {
    QString error = SaveThePresent(source, copy, outcome);
    if (error.isEmpty()) error = Empty(source);
    return error.isEmpty() ? Fill(source) : error;
}

QString CRestore::SaveThePresent(CSecondSource& source, const QString& path, RestoreOutcome& outcome) {
    const QString damage = source.Manager().File().IntegrityReport();
    if (!damage.isEmpty()) return FormatText<Text::SafetyCopyFailed>(damage);
    const BackupOutcome copy =
        WriteBackup({source, m_context.clock, m_context.progress}, path, EmptyBackup::Refused);
    if (copy) outcome.safetyCopy = path;
    return copy || copy.isEmpty ? QString() : FormatText<Text::SafetyCopyFailed>(copy.error);
}

QString CRestore::Empty(CSecondSource& source) {
    for (const RecordKind kind : kEmptied)
        if (!source.Manager().Query(LoadText(Text::SqlDeleteFrom) + source.Store().TableName(kind), true))
            return FormatText<Text::RestoreDeleteFailed>(source.Manager().m_error);
    if (m_context.emptied) m_context.emptied();
    return {};
}

/// What is read the second time has to be what was verified and asked about.
QString CRestore::Fill(CSecondSource& source) {
    CTableFiller tables(source);
    const BackupOutcome read = CBackupReader(m_file, m_context.progress)
                                   .ReadAgain(FormatText<Text::ProgressRestore>(m_verified.Total()),
                                              [&](CVORec& record) { return tables.Put(record); });
    if (!read) return read.error;
    return read.content == m_verified ? tables.Finish() : LoadText(Text::RestoreChanged);
}
