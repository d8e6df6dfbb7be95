#pragma once

class CClock;
class COutput;
class CPrompt;

/// What every command gets: its way out, the user, the clock.
struct Console {
    COutput& out;
    CPrompt& prompt;
    const CClock& clock;
};
