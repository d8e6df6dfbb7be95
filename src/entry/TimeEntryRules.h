#pragma once

#include "records/CTRecord.h"

#include <optional>

class CPrompt;
class CTimerDesk;
struct Settings;

/// Hours and minutes as entered.
struct EnteredSpan {
    int hours = 0;
    int minutes = 0;
};

/// The rules by which an entered value becomes part of a time record; each decides which setter of the record
/// to call and what is rounded first. Nothing entered (nullopt) clears the field.
namespace TimeEntryRules {

/// While the record has a timer, start, end, duration and break can't be entered. False when so; with a
/// prompt the user is told.
[[nodiscard]] bool MayEnterTimes(const CTimerDesk& timers, const QString& recordId, CPrompt* prompt);

void EnterStart(CTRecord& record, const std::optional<DateTimeVal>& time, const Settings& settings);
void EnterEnd(CTRecord& record, const std::optional<DateTimeVal>& time, const Settings& settings);
/// fromTimer: the value comes from a running timer and is not rounded.
void EnterDuration(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings,
                   bool fromTimer = false);
void EnterBreak(CTRecord& record, const std::optional<EnteredSpan>& span, const Settings& settings);
/// A text that can't be read as a number changes nothing: false.
bool EnterRate(CTRecord& record, const QString& text);
bool EnterAmount(CTRecord& record, const QString& text);

/// What the entry page of the record dialog holds when it is accepted.
struct EntryPage {
    QString item1, item2, item3, item4, item5;
    QString rate, amount;
    bool isBillable = false;
    bool isBilled = false;
};
/// Takes the page over in its fixed order; rate and amount as typed, without recalculation.
void AcceptEntryPage(CTRecord& record, const EntryPage& page);

}  // namespace TimeEntryRules
