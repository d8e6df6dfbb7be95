#pragma once

#include "exchange/backup/BackupOutcome.h"

class CClock;
class CProgress;
class CPrompt;
class CSecondSource;

/// Whether a path, however it is written, is one of the files that the records and settings of a home lie in,
/// or that belong to one of these.
[[nodiscard]] bool IsFileOfHome(const QString& home, const QString& path);

struct MakeBackupContext {
    CSecondSource& source;  ///< open
    CPrompt& prompt;
    const CClock& clock;
    CProgress& progress;
};

/// Backs up on the user's command: the records are examined before, and a damaged store is asked about; so is
/// an empty backup that would take the place of one with records. Where the user said no isCancelled is set.
[[nodiscard]] BackupOutcome MakeBackup(const MakeBackupContext& context, const QString& path);
