#pragma once

class CPrompt;
class CRecordTimers;
class CVelmarchDoc;

/// Offers to go on with the timers that the end of the window has paused; says nothing where none are. Asked
/// once: whatever the answer, the timers are paused or running as any other then.
void OfferPausedTimers(CRecordTimers& timers, CVelmarchDoc& document, CPrompt& prompt);
