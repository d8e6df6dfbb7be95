#pragma once

#include <QString>

struct BackupContent;
struct SYSTEMTIME;

// What is said of backups, in window and console.

/// "2026-11-20 12:00".
[[nodiscard]] QString BackupDateText(const SYSTEMTIME& time);
/// "1234 records: 1000 times, ...".
[[nodiscard]] QString BackupCountsText(const BackupContent& content);
/// Why a file can't be restored, and that nothing was changed.
[[nodiscard]] QString RestoreRefusal(const QString& path, const QString& reason);
/// Why a restore failed on the way.
[[nodiscard]] QString RestoreFailure(const QString& path, const QString& reason);
