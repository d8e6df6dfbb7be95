#pragma once

#include <QString>
#include <chrono>

/// Gives a database file that can't be read another name in its folder, "NAME.unreadable-20261119-090000",
/// together with its journal, which would otherwise be taken for the journal of the file that comes next.
/// Never replaces anything. The full new path; empty when it can't be renamed.
[[nodiscard]] QString PutInQuarantine(const QString& path);

/// Held while one of several programs decides about an unreadable file: a lock on its folder that ends with
/// the scope.
class FolderLock {
 public:
    /// path: the file in the folder. Any program that may read the folder can hold its lock, so it is waited
    /// for no longer than for a lock of the database.
    FolderLock(const QString& path, std::chrono::seconds limit);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// False when it could not be had in time. Where the file system has no such locks the files' own have to
    /// do: true.
    [[nodiscard]] bool IsHeld() const { return m_isHeld; }

 private:
    int m_handle;
    bool m_isHeld = true;
};
