#pragma once

#include <QString>

class ActiveTimerSet;
class CCfgStore;
class CVORec;
struct Settings;

/// What a column of the list shows of a record. While a time record has a timer, its duration is the count as
/// of the last fold: "01:42:17". A duration with a note on it is marked. Flags have no text; the notes show
/// theirs.
[[nodiscard]] QString CellText(const CVORec& record, int column, const Settings& settings,
                               const ActiveTimerSet& timers);

/// What a column of the list doesn't show of a record: the note on its times at its duration. Empty for all
/// others.
[[nodiscard]] QString CellNote(const CVORec& record, int column, const ActiveTimerSet& timers);

/// The record in words for a user who can't see the row, by the list's columns: "Date: 11/19/26, Start: 09:00
/// AM, Billable: yes". Empty texts are left out.
[[nodiscard]] QString RecordInWords(const CVORec& record, const CCfgStore& settings,
                                    const ActiveTimerSet& timers);

/// Whether a flag column is set, or notes are there. False for other columns.
[[nodiscard]] bool FlagOf(const CVORec& record, int column);
/// "Billable: yes".
[[nodiscard]] QString FlagInWords(const CVORec& record, int column, const CCfgStore& settings);
