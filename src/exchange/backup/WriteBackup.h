#pragma once

#include "exchange/backup/BackupOutcome.h"

class CClock;
class CProgress;
class CSecondSource;

/// What writing a backup needs. All must outlive it.
struct BackupContext {
    CSecondSource& source;
    const CClock& clock;
    CProgress& progress;
};

/// Whether a backup without a record is written.
enum class EmptyBackup { Refused, Written };

/// Writes all records of one moment into a file, which takes its place only when it was read back and found
/// sound; until then an older one stays. With a change open on the source the moment is that of the change.
[[nodiscard]] BackupOutcome WriteBackup(const BackupContext& context, const QString& path, EmptyBackup empty);
