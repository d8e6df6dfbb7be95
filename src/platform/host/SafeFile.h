#pragma once

#include <QByteArrayView>
#include <QString>

/// Who may read a file that we write.
enum class FileAudience { OwnerOnly /** mode 0600 */, UserDefault /** the user's umask */ };

/// How writing a whole file ended.
struct FileOutcome {
    bool written = false;  ///< whole, and sure to be there after a power cut
    QString error;         ///< what failed and what to do; empty when written
};

/// Writes a whole file so that either the old or the complete new content stands there, also after a power
/// cut: temporary file in the same folder, every write checked, flushed and synced, renamed, folder synced.
/// A target that is a link is replaced, not followed. A folder as target is refused.
[[nodiscard]] FileOutcome WriteWholeFile(const QString& path, QByteArrayView content, FileAudience audience);
