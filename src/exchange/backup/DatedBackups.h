#pragma once

#include <QString>

// Backups that the program makes by itself: each a file of its own, named with the time, of which the newest
// are kept.

/// The full name of a new one in a folder, which no file has. name: with its time, without an extension.
[[nodiscard]] QString NewDatedBackup(const QString& folder, const QString& name);
/// Deletes all whose names begin like this but for the newest so many; made: the one that was just made,
/// which stays whatever its time.
void KeepNewestBackups(const QString& folder, const QString& beginning, int most, const QString& made);
