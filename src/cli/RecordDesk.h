#pragma once

class CCfgStore;
class CSettingsOwner;
class CTimerAccess;
class CVelmarchDoc;
class CWindowLink;

/// What a command about records works with.
struct RecordDesk {
    CVelmarchDoc& document;
    const CCfgStore& settings;
    CTimerAccess& timers;
    CWindowLink& window;
    CSettingsOwner& owner;  ///< where settings are changed
};
