#pragma once

class CPrompt;
class CRecordTimers;

/// Tells the user, once, that timers are gone with damaged settings; says nothing where none are.
void TellLostTimers(CRecordTimers& timers, CPrompt& prompt);
