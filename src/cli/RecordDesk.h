#pragma once

class CCfgStore;
class CTimerAccess;
class CVelmarchDoc;
class CWindowLink;

/// What a command about records works with.
struct RecordDesk {
    CVelmarchDoc& document;
    const CCfgStore& settings;
    CTimerAccess& timers;
    CWindowLink& window;
};
