#pragma once

#include <QString>

struct SYSTEMTIME;

/// The backups that a restore makes of what was there before: files in the home, named with the time.

/// The name of a new one, which no file has.
[[nodiscard]] QString NewSafetyCopy(const QString& home, const SYSTEMTIME& time);
/// Deletes all but the newest five; that one always stays.
void KeepNewestSafetyCopies(const QString& home, const QString& made);
