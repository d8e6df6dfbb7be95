#pragma once

class CCfgStore;
class CEnteredItems;
class CPulldownCatalogue;
class CRecordChanges;
class CSettingsOwner;
class CTimerAccess;
class CUndo;
class CVelmarchDoc;
class CWindowLink;

/// What a command about records works with.
struct RecordContext {
    CVelmarchDoc& document;
    const CCfgStore& settings;
    CTimerAccess& timers;
    CWindowLink& window;
    CPulldownCatalogue& catalogue;  ///< empty until a command loads what it needs
    CSettingsOwner& owner;          ///< where settings are changed
    CRecordChanges& changes;        ///< all of what a command changes, or none
    CEnteredItems& entered;         ///< texts for the pick lists, stored with the next record
    CUndo& undo;                    ///< takes changes of records and lists back
};
