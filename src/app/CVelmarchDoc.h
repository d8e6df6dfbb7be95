#pragma once

#include "app/Hints.h"
#include "app/RecordMode.h"
#include "app/TimeFilter.h"
#include "app/VORecPtrCol.h"
#include "records/CRecordStore.h"

#include <QHash>
#include <QStringList>
#include <memory>
#include <vector>

class CCfgStore;
class CClock;
class CMessagePump;
class CTimerDesk;

/// What the document needs from outside, handed in at its making.
struct DocumentSurroundings {
    CRecordStore& store;
    CViewNotifier& views;
    CMessagePump& pump;
    const CClock& clock;
    const CCfgStore& settings;
};

/// Holds the records of the current mode in memory, decides which pass the filter, and is the only one that
/// changes time and expense records: the store first, then memory, then a hint to the views.
class CVelmarchDoc {
 public:
    explicit CVelmarchDoc(const DocumentSurroundings& around);
    ~CVelmarchDoc();

    /// Who knows the timers; null: no record has one.
    void SetTimers(const CTimerDesk* timers) { m_timers = timers; }

    /// Reloads all records of a kind (time or expense): hint Clear, then the bulk path, then row by row where
    /// that fails.
    bool LoadRecords(RecordKind kind);
    bool LoadCurrentMode() { return LoadRecords(KindOf(theRecordMode)); }
    /// Rebuilds the visible records by the mode's filter.
    void BuildVisible();
    void ResetTimeFilter();
    void CollectTimeIds(QStringList& out);
    /// For console commands about one record: the record from memory, or read into it from the store. Null
    /// when absent.
    [[nodiscard]] CVORec* FetchRecord(RecordKind kind, const QString& id);
    /// For console commands about one period: reads only the records of these days into memory.
    bool LoadDays(RecordKind kind, const DateTimeVal& first, const DateTimeVal& last);
    /// What another program changed: re-reads these records and announces them by hints, in place of a whole
    /// reload. False when that wasn't possible and a whole refresh is due.
    [[nodiscard]] bool RefreshRecords(RecordKind kind, const QStringList& ids);

    [[nodiscard]] CVORec* FindRecord(const QString& id) const { return m_records.Find(id); }
    [[nodiscard]] CTRecord* FindTime(const QString& id) const;
    [[nodiscard]] static std::unique_ptr<CVORec> CloneRecord(const CVORec& record);

    /// Adds a copy of the record. newId receives the identity under which it was stored.
    [[nodiscard]] bool AddRecord(const CVORec& record, bool notify, bool noCommit, bool newIdentity,
                                 QString* newId = nullptr);
    [[nodiscard]] bool ModifyRecord(const CVORec& record, const QString& id, bool notify, bool noCommit,
                                    bool seek, bool keep);
    [[nodiscard]] bool DeleteRecord(RecordKind kind, const QString& id, bool notify);
    void FlushPending(Hint hint);
    bool Commit();

    /// The visible records in no promised order. Places of removed records are null until the next look: use
    /// ForEachVisible.
    template <class Visit>
    void ForEachVisible(Visit&& visit) const {
        for (CVORec* record : m_visible)
            if (record) visit(*record);
    }
    [[nodiscard]] std::size_t VisibleCount() const { return m_visibleCount; }
    [[nodiscard]] std::size_t RecordCount() const { return m_records.Count(); }

    [[nodiscard]] TimeFilter& Filter() { return m_timeFilter; }
    [[nodiscard]] const TimeFilter& Filter() const { return m_timeFilter; }
    [[nodiscard]] PeriodSurroundings PeriodNeeds() const;
    [[nodiscard]] CRecordStore& Store() { return m_store; }
    [[nodiscard]] const CCfgStore& GetSettings() const { return m_settings; }
    [[nodiscard]] const CClock& Clock() const { return m_clock; }
    void NotifyViews(Hint hint, const QStringList& ids = {}) { m_views.NotifyViews(hint, ids); }

 private:
    bool LoadBulk(RecordKind kind, const QString& statement);
    void LoadRowByRow(RecordKind kind, const QString& statement);
    [[nodiscard]] bool Passes(const CVORec& record) const;
    [[nodiscard]] std::size_t VisiblePlace(const QString& id);
    void Announce(Hint hint, const QString& id, bool notify);

    CRecordStore& m_store;
    CViewNotifier& m_views;
    CMessagePump& m_pump;
    const CClock& m_clock;
    const CCfgStore& m_settings;
    const CTimerDesk* m_timers = nullptr;
    QStringList m_pendingIds;
    std::vector<CVORec*> m_visible;
    std::size_t m_visibleCount = 0;
    QHash<QString, std::size_t> m_visiblePlaces;  ///< made at the first change after a rebuild
    bool m_placesKnown = false;
    TimeFilter m_timeFilter;
    VORecPtrCol m_records;
    std::vector<std::unique_ptr<CVORec>> m_retired;  ///< objects that m_visible may still point to
};
