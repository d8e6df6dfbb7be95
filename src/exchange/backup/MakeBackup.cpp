#include "exchange/backup/MakeBackup.h"

#include "app/HomeFiles.h"
#include "changes/CProgress.h"
#include "exchange/backup/CBackupReader.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/WriteBackup.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

bool IsAgreed(CPrompt& prompt, Text question, const QString& words, Text action) {
    return prompt.Ask({.textId = static_cast<int>(question),
                       .title = LoadText(Text::BackupDoneTitle),
                       .text = words,
                       .icon = BoxIcon::Warning,
                       .buttons = Buttons::YesNo,
                       .defaultAnswer = Answer::No,
                       .actionLabel = LoadText(action)}) == Answer::Yes;
}

BackupOutcome Declined() {
    return {.error = LoadText(Text::BackupCancelled), .content = {}, .isCancelled = true};
}

/// How many records the file holds that would be replaced; 0 for one that is no backup.
int RecordsIn(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return 0;
    CNoProgress progress;
    return CBackupReader(file, progress).VerifyParts().content.Total();
}

/// The folder's own path and the name in it: a link in the place of the file itself is replaced, not
/// followed.
QString Place(const QString& path) {
    const QFileInfo file(path);
    return QFileInfo(file.absolutePath()).canonicalFilePath() + u'/' + file.fileName();
}

}  // namespace

bool IsFileOfHome(const QString& home, const QString& path) {
    const QString place = Place(path);
    for (const QString& file : {StorePath(home), SettingsPath(home), HistoryPath(home)})
        for (const char* part : {"", "-journal", "-wal", "-shm"})
            if (place == Place(file + QString::fromLatin1(part))) return true;
    return false;
}

BackupOutcome MakeBackup(const MakeBackupContext& context, const QString& path) {
    if (const QString damage = context.source.FindDamage();
        !damage.isEmpty() && !IsAgreed(context.prompt, Text::AskBackupDamaged,
                                       FormatText<Text::AskBackupDamaged>(damage), Text::AskBackupDamagedYes))
        return Declined();
    const BackupContext work{context.source, context.clock, context.progress};
    BackupOutcome outcome = WriteBackup(work, path, EmptyBackup::Refused);
    if (!outcome.isEmpty) return outcome;
    // A slip in the choice of the home must not cost last night's backup.
    const int replaced = RecordsIn(path);
    if (replaced > 0 && !IsAgreed(context.prompt, Text::AskBackupEmpty,
                                  FormatText<Text::AskBackupEmpty>(path, replaced), Text::AskBackupEmptyYes))
        return Declined();
    return WriteBackup(work, path, EmptyBackup::Written);
}
