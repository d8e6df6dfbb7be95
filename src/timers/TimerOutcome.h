#pragma once

class ActiveTimer;
class CPrompt;
class QString;

/// What it came to that something was done to timers. True only where all of it is done.
struct [[nodiscard]] TimerOutcome {
    enum class End {
        Done,
        NoRecord,
        NoTimer,      ///< for a pause: none that runs
        NotInRecord,  ///< a stop could not be written into its record, of which the user was told; the timer
                      ///< goes on
        NotSaved      ///< the timers could not be saved; nobody was told
    };
    End end = End::Done;

    explicit operator bool() const { return end == End::Done; }
};

/// Tells the user of timers that could not be saved, and why; says nothing of any other outcome.
void TellIfUnsaved(const TimerOutcome& outcome, const QString& why, CPrompt& prompt);
/// Tells that a new record is stored and its timer isn't.
void TellWithoutTimer(CPrompt& prompt);
/// Tells of a timer that was taken away without a record, and what it has counted.
void TellOrphan(const ActiveTimer& orphan, CPrompt& prompt);
