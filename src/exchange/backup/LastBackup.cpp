#include "exchange/backup/LastBackup.h"

#include "app/HomeFiles.h"
#include "exchange/backup/BackupTexts.h"
#include "lang/FormatText.h"
#include "platform/settings/CProfile.h"
#include "platform/settings/CSettingsTree.h"
#include "platform/sqlite/CSqliteFile.h"

#include <QFileInfo>
#include <bit>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kSection = u"Backup"_s;
const QString kTime = u"LastTime"_s;
const QString kPath = u"LastFile"_s;

/// A tree puts a file aside that it can't read; that isn't the business of a backup.
bool CanBeOpened(const QString& path) {
    CSqliteFile file;
    return QFileInfo(path).size() > 0 &&
           file.Open(path, CSettingsTree::kFileKind, false) == OpenOutcome::Existed;
}

}  // namespace

std::optional<LastBackup> ReadLastBackup(const CProfile& profile) {
    const auto time = profile.GetBinary(kSection, kTime);
    const auto path = profile.GetText(kSection, kPath);
    if (!time || time->size() != sizeof(SYSTEMTIME) || !path) return std::nullopt;
    LastBackup last{.time = {}, .path = *path};
    std::memcpy(&last.time, time->constData(), sizeof last.time);
    return last;
}

bool NoteLastBackup(CProfile& profile, const LastBackup& last) {
    const QByteArray time(reinterpret_cast<const char*>(&last.time), sizeof last.time);
    return profile.Change([&] {
        return profile.WriteBinary(kSection, kTime, time) && profile.WriteText(kSection, kPath, last.path);
    });
}

void NoteLastBackup(const QString& home, const LastBackup& last) {
    const QString path = SettingsPath(home);
    CSettingsTree tree;
    if (!CanBeOpened(path) || !tree.Open(path)) return;
    CProfile profile(tree, LoadText(Text::ProfileKeyName));
    static_cast<void>(NoteLastBackup(profile, last));
}

QString LastBackupText(const std::optional<LastBackup>& last) {
    return last ? FormatText<Text::LastBackup>(BackupDateText(last->time), last->path)
                : LoadText(Text::NoLastBackup);
}
