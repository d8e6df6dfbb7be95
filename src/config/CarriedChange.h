#pragma once

class CCfgStore;
class CEntryJournal;

/// While one lives, entries that change belong to the change of the records before.
class [[nodiscard]] CarriedChange {
 public:
    explicit CarriedChange(const CCfgStore& settings);
    ~CarriedChange();
    CarriedChange(const CarriedChange&) = delete;
    CarriedChange& operator=(const CarriedChange&) = delete;

 private:
    CEntryJournal* m_journal;
};
