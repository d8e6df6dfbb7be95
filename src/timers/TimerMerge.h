#pragma once

class ActiveTimerSet;

/// Takes over into ours what another program changed in the stored timers since this one last read or wrote
/// them (base: the stored timers then; theirs: the stored timers now). Timers that came or went there come or
/// go here; a timer that changed there only takes their count and state; where both changed, ours stands.
/// Timers of ours that were never stored stay.
void MergeTimers(ActiveTimerSet& ours, const ActiveTimerSet& base, const ActiveTimerSet& theirs);
