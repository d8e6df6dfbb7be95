#pragma once

#include <QString>

/// Gives a database file that can't be read another name in its folder, "NAME.unreadable-20261119-090000",
/// together with its journal, which would otherwise be taken for the journal of the file that comes next.
/// Never replaces anything. The full new path; empty when it can't be renamed.
[[nodiscard]] QString PutInQuarantine(const QString& path);

/// Held while one of several programs decides about an unreadable file: a lock on its folder that ends with
/// the scope.
class FolderLock {
 public:
    /// path: the file in the folder.
    explicit FolderLock(const QString& path);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

 private:
    int m_handle;
};
