#pragma once

#include <QString>

/// Whether files in the folder of this file can't be locked at all, as on some network file systems. SQLite
/// takes that for a lock that another program holds. Asked of a nameless file beside it: closing another
/// handle of a database would drop the locks that this program has on it. False where no such file can be
/// made.
[[nodiscard]] bool LacksLocks(const QString& path);
