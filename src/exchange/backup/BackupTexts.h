#pragma once

#include <QString>
#include <cstdint>

struct BackupContent;
struct SYSTEMTIME;

// What is said of backups, in window and console.

/// "2026-11-20 12:00".
[[nodiscard]] QString BackupDateText(const SYSTEMTIME& time);
/// "1234 records: 1000 times, ...".
[[nodiscard]] QString BackupCountsText(const BackupContent& content);
/// Why a file can't be restored, and that nothing was changed.
[[nodiscard]] QString RestoreRefusal(const QString& path, const QString& reason);
/// Why a record of a backup can't be stored: the store's code and words.
[[nodiscard]] QString InsertFailure(std::int32_t code, const QString& words);
/// Why a restore failed on the way.
[[nodiscard]] QString RestoreFailure(const QString& path, const QString& reason);
