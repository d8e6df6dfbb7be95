#pragma once

#include "platform/host/SYSTEMTIME.h"

#include <QString>
#include <optional>

class CProfile;

/// The last backup that was written and read back, as the settings remember it.
struct LastBackup {
    SYSTEMTIME time;
    QString path;
};

[[nodiscard]] std::optional<LastBackup> ReadLastBackup(const CProfile& profile);
/// False when it can't be noted.
[[nodiscard]] bool NoteLastBackup(CProfile& profile, const LastBackup& last);
/// The same for a program that hasn't the settings open. Settings that aren't there, or aren't sound, are
/// left alone.
void NoteLastBackup(const QString& home, const LastBackup& last);
/// For the user: when and where, or that there is none.
[[nodiscard]] QString LastBackupText(const std::optional<LastBackup>& last);
