#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

class CClock;

/// The rows of store and settings as they stand in the files, and what is wrong with the store. Identities
/// that aren't among the known ones appear as "new": each run makes others.
[[nodiscard]] QStringList RowsOf(const QString& home, const QSet<QString>& known);

/// What a home holds, as lines in alphabetical order: the rows of the tables, stored defaults, settings,
/// columns, trees, the timers with their counts folded to now, in the long form the word of the doctor. Two
/// homes with the same lines hold the same. Identities that aren't among the known ones appear as "new": each
/// run makes others.
[[nodiscard]] QStringList ContentOf(const QString& home, const QSet<QString>& known, const CClock& clock);

/// The lines that only one of two contents has, "- " in front of those of the first, "+ " of the second.
[[nodiscard]] QString Difference(const QStringList& first, const QStringList& second);

/// Whether a change that was left halfway, and says so, has lost nothing: all that is there was there before
/// it or is there after it, and each timer counts on or was written into its record.
[[nodiscard]] bool IsBetween(const QStringList& content, const QStringList& before, const QStringList& after);

/// A copy of the files of a home, in place of all that another folder holds.
[[nodiscard]] bool CopyHome(const QString& from, const QString& to);
