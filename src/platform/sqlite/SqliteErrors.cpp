#include "platform/sqlite/SqliteErrors.h"

#include <sqlite3.h>

#include <cerrno>

namespace {

struct SentenceRow {
    int code;         ///< an extended result code, or a primary one that stands for all its extended ones
    int systemError;  ///< 0: whatever it is
    const char* sentence;
};

constexpr char kFull[] = "The disk is full, so %1 was not changed. Free some space and try again.";
constexpr char kTooLarge[] =
    "%1 may not grow any further here (the allowed file size is reached), so it was not changed.";
constexpr char kInUse[] = "Another program is using %1. Try again when it is done.";
constexpr char kReadOnly[] =
    "%1 is read-only, so nothing can be changed in it. Make the file and its folder writable.";
constexpr char kNoLocks[] =
    "The file system on which %1 lies doesn't let files be locked, so the data would not be safe from other "
    "programs. Move its folder to another disk.";
constexpr char kDamaged[] =
    "%1 is damaged, so nothing is written to it. What can be read of it goes into a new folder with "
    "\"velmarch-cli doctor --salvage FOLDER\".";
constexpr char kNoAccess[] =
    "%1 may not be opened by you. Check who owns the file and its folder and who may use them.";

/// The first row that fits counts.
constexpr SentenceRow kSentences[] = {
    {SQLITE_READONLY_DBMOVED, 0,
     "%1 was moved, deleted or replaced while it was in use, so nothing more is written to it. "
     "Leave the program, put the file back and start again."},
    {SQLITE_READONLY_ROLLBACK, 0,
     "%1 was left in the middle of a change and can't be repaired while it is read-only. "
     "Make the file and its folder writable."},
    {SQLITE_READONLY, 0, kReadOnly},
    {SQLITE_BUSY, 0, kInUse},
    {SQLITE_LOCKED, 0, kInUse},
    {SQLITE_FULL, 0, kFull},
    {SQLITE_NOTADB, 0,
     "%1 is damaged or not a file of this program. What can be read of it goes into a new folder with "
     "\"velmarch-cli doctor --salvage FOLDER\"."},
    {SQLITE_CORRUPT, 0, kDamaged},
    {SQLITE_IOERR_SHORT_READ, 0, kDamaged},
    {SQLITE_IOERR, ENOSPC, kFull},
    {SQLITE_IOERR, EDQUOT,
     "Your disk quota is used up, so %1 was not changed. Free some space and try again."},
    {SQLITE_IOERR, EFBIG, kTooLarge},
    {SQLITE_IOERR, EROFS, kReadOnly},
    {SQLITE_IOERR, ENOLCK, kNoLocks},
    {SQLITE_IOERR, EOPNOTSUPP, kNoLocks},
    {SQLITE_IOERR_LOCK, ENOSYS, kNoLocks},
    {SQLITE_IOERR_RDLOCK, ENOSYS, kNoLocks},
    {SQLITE_IOERR_NOMEM, 0, "There is not enough memory. Close other programs and try again."},
    {SQLITE_NOMEM, 0, "There is not enough memory. Close other programs and try again."},
    {SQLITE_IOERR, 0, "The disk reported an error while %1 was in use. Check the disk, then try again."},
    {SQLITE_CANTOPEN, ENOENT, "%1 can't be opened: its folder does not exist. Create the folder first."},
    {SQLITE_CANTOPEN, ENOTDIR, "%1 can't be opened: its folder does not exist. Create the folder first."},
    {SQLITE_CANTOPEN, EACCES, kNoAccess},
    {SQLITE_CANTOPEN, EPERM, kNoAccess},
    {SQLITE_CANTOPEN, EROFS, kReadOnly},
    {SQLITE_CANTOPEN, ENOSPC, kFull},
    {SQLITE_CANTOPEN, EMFILE, "Too many files are open. Close other programs and try again."},
    {SQLITE_CANTOPEN, ENFILE, "Too many files are open. Close other programs and try again."},
    {SQLITE_CANTOPEN, ENAMETOOLONG, "%1 can't be opened: the path is too long. Choose a shorter one."},
    {SQLITE_CANTOPEN, ELOOP, "%1 can't be opened: the links on its path lead in a circle."},
    {SQLITE_PERM, 0, kNoAccess},
    {SQLITE_TOOBIG, 0, "A text is too long for %1. Shorten it."},
};

bool Fits(const SentenceRow& row, int code, int systemError) {
    const bool sameCode = row.code == code || row.code == (code & 0xFF);
    return sameCode && (row.systemError == 0 || row.systemError == systemError);
}

}  // namespace

QString SqliteSentence(int code, int systemError, const QString& path, const QString& message) {
    for (const SentenceRow& row : kSentences) {
        if (Fits(row, code, systemError))
            return QString::fromLatin1(row.sentence).replace(QStringLiteral("%1"), path);
    }
    return QStringLiteral("%1 could not be used (%2).").arg(path, message);
}

OpenOutcome OutcomeOf(int code) {
    if (code == SQLITE_IOERR_SHORT_READ) return OpenOutcome::Damaged;
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return OpenOutcome::Locked;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return OpenOutcome::Damaged;
        default:
            return OpenOutcome::Failed;
    }
}
