#pragma once

#include "platform/sqlite/OpenOutcome.h"

#include <QString>

/// What went wrong with a database file, in a sentence that says what to do. SQLite's own message appears
/// only for what nobody foresaw, in parentheses. code: SQLite's extended result code; systemError: the errno
/// behind it or 0.
[[nodiscard]] QString SqliteSentence(int code, int systemError, const QString& path, const QString& message);

/// How an attempt to open a file ended that met this result code: locked, damaged or failed.
[[nodiscard]] OpenOutcome OutcomeOf(int code);
