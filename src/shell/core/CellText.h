#pragma once

#include <QString>

class ActiveTimerSet;
class CTRecord;
struct Settings;

/// The text of an item, the rate or the amount of a time record, by its column.
[[nodiscard]] QString ItemText(const CTRecord& record, int column);

/// What a column of the list shows of a time record. While the record has a timer, its duration is the count
/// as of the last fold: "01:42:17". Flags have no text; the notes show theirs.
[[nodiscard]] QString TimeCellText(const CTRecord& record, int column, const Settings& settings,
                                   const ActiveTimerSet& timers);

/// The record in words for whoever can't see the row: "Date: 11/19/26, Start: 09:00 AM, Billable: yes".
/// Empty texts are left out.
[[nodiscard]] QString RecordInWords(const CTRecord& record, const Settings& settings,
                                    const ActiveTimerSet& timers);

/// Whether a flag column is set, or notes are there.
[[nodiscard]] bool FlagOf(const CTRecord& record, int column);
/// "Billable: yes".
[[nodiscard]] QString FlagInWords(const CTRecord& record, int column);
