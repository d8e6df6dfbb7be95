#pragma once

#include <QString>

/// Copies a database file with its journal as they are on the disk, without opening it: for one that is
/// damaged. A change that was cut off is undone in the copy. Other programs that write to it wait meanwhile,
/// and the copy waits for them, `seconds` at most. The original isn't touched.
///
/// This program must have no transaction open on it: SQLite's locks of that would be lost.
///
/// An empty text, or what failed.
[[nodiscard]] QString CopyDatabase(const QString& from, const QString& to, int seconds);
