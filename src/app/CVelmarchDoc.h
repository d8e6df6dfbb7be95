#pragma once

#include "app/ExpenseFilter.h"
#include "app/Hints.h"
#include "app/RecordMode.h"
#include "app/TimeFilter.h"
#include "app/VORecPtrCol.h"
#include "records/CRecordStore.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class CCfgStore;
class CClock;
class CERecord;
class CMessagePump;
class CTimerService;
class CTRecord;

/// What the document needs from outside, handed in at its making.
struct DocumentContext {
    CRecordStore& store;
    CViewListener& views;
    CMessagePump& pump;
    const CClock& clock;
    const CCfgStore& settings;
};

/// Whether the views hear of a change at once, with those of a batch, or not at all, as no view shows it.
enum class Notify { Yes, Later, No };
/// Whether an added record goes by the identity that it has or gets a new one.
enum class Identity { Own, New };
/// Whether the record takes its place in memory, or is of a kind that isn't loaded.
enum class Hold { Yes, No };

struct AddChoice {
    Notify notify;
    Commit commit;
    Identity identity = Identity::Own;
    Hold hold = Hold::Yes;
};
struct ModifyChoice {
    Notify notify;
    Commit commit;
    Hold hold = Hold::Yes;
};

/// Holds the records of the current mode in memory, decides which pass the filter, and is the only one that
/// changes time and expense records: the store first, then memory, then a hint to the views.
///
/// Pointers to records stay good until the views have been told that the record changed or went: at the
/// latest by the hint that a batch ends with, or by Rebuild or Clear.
class CVelmarchDoc {
 public:
    /// More identities than these aren't refreshed one by one.
    static constexpr qsizetype kMostRefreshed = 1000;

    explicit CVelmarchDoc(const DocumentContext& context);
    ~CVelmarchDoc();
    CVelmarchDoc(const CVelmarchDoc&) = delete;
    CVelmarchDoc& operator=(const CVelmarchDoc&) = delete;

    /// Who knows the timers; null: no record has one.
    void SetTimers(const CTimerService* timers) { m_timers = timers; }

    /// Reloads all records of a kind (time or expense): hint Clear, then the bulk path, then row by row where
    /// that fails. When the rows can't be read, the store has told the user, and the collection holds what
    /// came.
    void LoadRecords(RecordKind kind);
    void LoadCurrentMode() { LoadRecords(KindOf(theRecordMode)); }
    /// Shows the other kind of records, or the same anew: loads them while the former mode is still in force,
    /// then sets theRecordMode, rebuilds the visible records, hint Rebuild. captureWidths is called just
    /// before the mode changes, and not when it stays the same.
    void SwitchMode(RecordMode mode, const std::function<void()>& captureWidths = {});
    /// Rebuilds the visible records by the filter of their kind.
    void BuildVisible();
    void ResetTimeFilter();
    void ResetExpenseFilter();
    /// The identities of all loaded records of the kind that pass its filter, in no promised order.
    void CollectTimeIds(QStringList& out);
    void CollectExpenseIds(QStringList& out);
    /// For commands about one record: the record from memory, or read from the store and kept apart from the
    /// loaded ones, so that neither filter, views nor the other mode see it. Null when absent.
    [[nodiscard]] CVORec* FetchRecord(RecordKind kind, const QString& id);
    /// What another program changed: re-reads these records and announces them by hints, in place of a whole
    /// reload. False when that wasn't possible and a whole refresh is due.
    [[nodiscard]] bool RefreshRecords(RecordKind kind, const QStringList& ids);

    /// A loaded record, or one that FetchRecord read; null when neither.
    [[nodiscard]] CVORec* FindRecord(const QString& id) const;
    /// A loaded record, visible or not; null when it isn't loaded.
    [[nodiscard]] const CVORec* FindLoaded(const QString& id) const { return m_records.Find(id); }
    [[nodiscard]] CTRecord* FindTime(const QString& id) const;
    [[nodiscard]] CERecord* FindExpense(const QString& id) const;
    /// A new object with the same content; null for records other than times and expenses.
    [[nodiscard]] static std::unique_ptr<CVORec> CloneRecord(const CVORec& record);

    // Each is true only where what was wanted is done, its commit included (Commit::Now).

    /// Adds a copy of the record, visible whatever the filter says. newId receives the identity under which
    /// it was stored.
    [[nodiscard]] bool AddRecord(const CVORec& record, const AddChoice& choice, QString* newId = nullptr);
    /// Adds the record itself.
    [[nodiscard]] bool AddRecord(std::unique_ptr<CVORec> record, const AddChoice& choice,
                                 QString* newId = nullptr);
    /// After a failure the visible record shows the change that could not be stored, until the next reload.
    [[nodiscard]] bool ModifyRecord(const CVORec& record, const QString& id, const ModifyChoice& choice);
    [[nodiscard]] bool DeleteRecord(RecordKind kind, const QString& id, Notify notify);
    /// Ends a batch of changes made with Notify::Later: one hint for all of them, none when there were none.
    void FlushPending(Hint hint);
    /// For a batch that may stand within another one: how many identities wait for their hint before it, and
    /// afterwards those of its own, which the caller announces. The others go on waiting for theirs.
    [[nodiscard]] qsizetype PendingCount() const { return m_pendingIds.size(); }
    QStringList TakePending(qsizetype from);
    /// After changes that were undone in the store: reads anew whatever is held of it, and tells the views.
    void ReadAnew();

    /// While one lives, records are being changed one after the other: what another program has changed
    /// meanwhile is taken over afterwards.
    class [[nodiscard]] ChangeScope {
     public:
        explicit ChangeScope(CVelmarchDoc& document) : m_document(document) { ++m_document.m_changing; }
        ~ChangeScope() { --m_document.m_changing; }
        ChangeScope(const ChangeScope&) = delete;
        ChangeScope& operator=(const ChangeScope&) = delete;

     private:
        CVelmarchDoc& m_document;
    };
    [[nodiscard]] bool IsBeingChanged() const { return m_changing > 0; }

    /// The loaded records that a filter lets pass, in no promised order; none of the other kind.
    [[nodiscard]] std::vector<const CVORec*> CollectPassing(const TimeFilter& filter);
    [[nodiscard]] std::vector<const CVORec*> CollectPassing(const ExpenseFilter& filter);
    /// Whether a filter lets a record pass; false for one of the other kind.
    [[nodiscard]] bool Passes(const CVORec& record, const TimeFilter& filter) const;
    [[nodiscard]] bool Passes(const CVORec& record, const ExpenseFilter& filter) const;

    /// The visible records in no promised order.
    template <class Visit>
    void ForEachVisible(Visit&& visit) const {
        for (CVORec* record : m_visible)
            if (record) visit(*record);
    }
    [[nodiscard]] bool IsVisible(const QString& id) const {
        return m_records.PlaceOf(id) != VORecPtrCol::kNoPlace;
    }
    [[nodiscard]] std::size_t VisibleCount() const { return m_visibleCount; }
    /// Each visible record has a place, which stays its own until the next BuildVisible; kNoPlace for one
    /// that isn't visible.
    [[nodiscard]] std::size_t VisiblePlaceOf(const QString& id) const { return m_records.PlaceOf(id); }
    /// What views show at a place; null where nothing is (any more).
    [[nodiscard]] const CVORec* VisibleAt(std::size_t place) const {
        return place < m_visible.size() ? m_visible[place] : nullptr;
    }
    /// Behind the last place.
    [[nodiscard]] std::size_t VisiblePlaces() const { return m_visible.size(); }
    /// Another number as soon as the places are given anew.
    [[nodiscard]] unsigned PlacesEdition() const { return m_placesEdition; }
    [[nodiscard]] std::size_t RecordCount() const { return m_records.Count(); }

    [[nodiscard]] TimeFilter& Filter() { return m_timeFilter; }
    [[nodiscard]] const TimeFilter& Filter() const { return m_timeFilter; }
    [[nodiscard]] ExpenseFilter& FilterOfExpenses() { return m_expenseFilter; }
    [[nodiscard]] const ExpenseFilter& FilterOfExpenses() const { return m_expenseFilter; }
    /// The period and matching of the filter of a kind; that of the mode in force.
    [[nodiscard]] PeriodFilter& FilterOf(RecordKind kind);
    [[nodiscard]] const PeriodFilter& CurrentFilter() const;
    [[nodiscard]] PeriodFilter& CurrentFilter() { return FilterOf(KindOf(theRecordMode)); }
    [[nodiscard]] PeriodContext GetPeriodContext() const;
    [[nodiscard]] CRecordStore& Store() { return m_store; }
    [[nodiscard]] const CCfgStore& GetSettings() const { return m_settings; }
    [[nodiscard]] const CClock& Clock() const { return m_clock; }
    void NotifyViews(Hint hint, const QStringList& ids = {});

 private:
    enum class LoadEnd { Complete, Failed, Left };
    struct Refresh;

    void Load(RecordKind kind, const QString& statement);
    [[nodiscard]] LoadEnd LoadBulk(RecordKind kind, const QString& statement, unsigned loading);
    [[nodiscard]] LoadEnd LoadRowByRow(RecordKind kind, const QString& statement, unsigned loading);
    void Keep(std::unique_ptr<CVORec> loaded);
    [[nodiscard]] bool MayGoOn(unsigned loading);
    [[nodiscard]] bool IsLoadedKind(RecordKind kind) const;

    class BothFilters;
    [[nodiscard]] bool Passes(const CVORec& record) const;
    void CollectIds(RecordKind kind, QStringList& out);
    void AppendVisible(CVORec& record);
    bool ReplaceVisible(const QString& id, CVORec& record);
    void RemoveVisible(const QString& id);

    void Accommodate(std::unique_ptr<CVORec> added);
    void StandInFor(std::unique_ptr<CVORec> changed, bool isShown, Hold hold);
    void Announce(Hint hint, const QString& id, Notify notify);
    [[nodiscard]] bool IsStored(bool isTaken) const { return isTaken && m_store.m_lastError == 0; }

    [[nodiscard]] bool ReadChanges(RecordKind kind, const QStringList& ids, Refresh& refresh);
    void SortOut(const QString& id, std::unique_ptr<CVORec> stored, Refresh& refresh);
    void TakeOver(std::unique_ptr<CVORec> stored);

    CRecordStore& m_store;
    CViewListener& m_views;
    CMessagePump& m_pump;
    const CClock& m_clock;
    const CCfgStore& m_settings;
    const CTimerService* m_timers = nullptr;
    int m_changing = 0;
    QStringList m_pendingIds;
    std::vector<CVORec*> m_visible;  ///< null where a record was removed; places are kept in m_records
    std::size_t m_visibleCount = 0;
    unsigned m_placesEdition = 0;
    TimeFilter m_timeFilter;
    ExpenseFilter m_expenseFilter;
    VORecPtrCol m_records;
    VORecPtrCol m_fetched;                             ///< records read one by one, of either kind
    std::optional<RecordKind> m_loadedKind;            ///< of m_records; nothing before the first load
    bool m_loadedAll = false;                          ///< m_records holds every record of its kind
    unsigned m_loading = 0;                            ///< counts the loads, so that one notices a newer one
    std::vector<std::unique_ptr<CVORec>> m_shownOnly;  ///< not in m_records, but m_visible points to them
    std::vector<std::unique_ptr<CVORec>> m_displaced;  ///< gone, but views may not have been told yet
};
