#include "exchange/backup/CBackupCommands.h"

#include "app/CVelmarchDoc.h"
#include "exchange/backup/BackupTexts.h"
#include "exchange/backup/CRestore.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/LastBackup.h"
#include "exchange/backup/MakeBackup.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/CPrompt.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

MessageBox Box(Text text, const QString& words, Text title, BoxIcon icon) {
    return {.textId = static_cast<int>(text),
            .title = LoadText(title),
            .text = words,
            .icon = icon,
            .actionLabel = {}};
}

}  // namespace

/// Beside the last one; the first one goes into the user's own folder.
QString CBackupCommands::SuggestedFile() const {
    const SYSTEMTIME now = m_context.clock.GetLocalTime();
    const auto last = ReadLastBackup(m_context.profile);
    const QString lastFolder = last ? QFileInfo(last->path).path() : QString();
    const QString folder = QFileInfo(lastFolder).isDir() ? lastFolder : QDir::homePath();
    return folder + u'/' +
           FormatText<Text::BackupName>(now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute) + u'.' +
           LoadText(Text::BackupExtension);
}

/// A store that can't be opened a second time ends the command in silence, as does a choice that is called
/// off.
void CBackupCommands::Backup() {
    CSecondSource source(m_context.home, m_context.prompt);
    if (!source.Open()) return;
    const auto path = m_context.prompt.ChooseFile(
        {.purpose = FileChoice::Purpose::Save,
         .title = LoadText(Text::BackupDoneTitle),
         .suggestedName = SuggestedFile(),
         .filter = LoadText(Text::BackupDescription) + u" (*."_s + LoadText(Text::BackupExtension) + u')'});
    if (!path) return;
    if (IsFileOfHome(m_context.home, *path))
        return m_context.prompt.Tell(Box(Text::BackupOwnFile, FormatText<Text::BackupOwnFile>(*path),
                                         Text::BackupFailedTitle, BoxIcon::Warning));
    BackupOutcome outcome;
    {
        const CVelmarchDoc::ChangeScope reading(m_context.document);
        outcome = MakeBackup({source, m_context.prompt, m_context.clock, m_context.progress}, *path);
    }
    // Whether it can be noted changes nothing about the file.
    if (outcome) static_cast<void>(NoteLastBackup(m_context.profile, {outcome.content.time, *path}));
    if (!outcome.isCancelled) TellBackup(*path, outcome.error);
}

void CBackupCommands::TellBackup(const QString& path, const QString& error) {
    if (error.isEmpty())
        return m_context.prompt.Tell(Box(Text::BackupDone,
                                         LoadText(Text::BackupDone) + path + LoadText(Text::BackupDoneEnd),
                                         Text::BackupDoneTitle, BoxIcon::Information));
    m_context.prompt.Tell(
        Box(Text::BackupFailed,
            LoadText(Text::BackupFailed) + path + LoadText(Text::BackupFailedEnd) + u"\n\n"_s + error,
            Text::BackupFailedTitle, BoxIcon::Stop));
}

void CBackupCommands::Restore() {
    if (!CSecondSource(m_context.home, m_context.prompt).Open()) return;
    const auto path = m_context.prompt.ChooseFile({.purpose = FileChoice::Purpose::Open,
                                                   .title = LoadText(Text::AskRestoreTitle),
                                                   .suggestedName = QFileInfo(SuggestedFile()).path(),
                                                   .filter = LoadText(Text::BackupFilter)});
    if (!path) return;
    CRestore restore({.prompt = m_context.prompt,
                      .clock = m_context.clock,
                      .progress = m_context.progress,
                      .emptied = [this] { m_context.document.NotifyViews(Hint::Clear); }});
    const BackupOutcome verified = restore.Verify(*path);
    if (verified.isCancelled) return;
    if (!verified)
        return m_context.prompt.Tell(Box(Text::BackupRefused, RestoreRefusal(*path, verified.error),
                                         Text::RestoreFailedTitle, BoxIcon::Warning));
    if (!restore.IsConfirmed()) return;
    RestoreOutcome outcome;
    {
        const CVelmarchDoc::ChangeScope changing(m_context.document);
        outcome =
            restore.Run(m_context.home, m_context.document.Store().Manager().Journal(), m_context.timers());
    }
    if (outcome)
        TellRestored(*path, outcome.safetyCopy);
    else
        m_context.prompt.Tell(Box(Text::RestoreFailed, RestoreFailure(*path, outcome.error),
                                  Text::RestoreFailedTitle, BoxIcon::Stop));
    m_context.refresh();
}

void CBackupCommands::TellRestored(const QString& path, const QString& safetyCopy) {
    QString words = LoadText(Text::RestoreDone) + path + LoadText(Text::BackupDoneEnd);
    if (!safetyCopy.isEmpty()) words += u"\n\n"_s + FormatText<Text::SafetyCopyMade>(safetyCopy);
    if (const int dropped = m_context.dropGone(); dropped > 0)
        words += u"\n\n"_s + FormatText<Text::RestoreTimersDropped>(dropped);
    m_context.prompt.Tell(Box(Text::RestoreDone, words, Text::RestoreDoneTitle, BoxIcon::Information));
}
