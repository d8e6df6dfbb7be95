#include "app/CVelmarchDoc.h"

#include "config/CCfgStore.h"
#include "platform/host/CMessagePump.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

#include <algorithm>
#include <utility>

CVelmarchDoc::CVelmarchDoc(const DocumentContext& context)
    : m_store(context.store),
      m_views(context.views),
      m_pump(context.pump),
      m_clock(context.clock),
      m_settings(context.settings) {}

CVelmarchDoc::~CVelmarchDoc() = default;

// --- What passes the filter

/// The filters of both kinds, prepared for a walk: each record is asked by the one that knows its fields.
class CVelmarchDoc::BothFilters {
 public:
    explicit BothFilters(const CVelmarchDoc& document)
        : m_time(document.m_timeFilter, document.GetPeriodContext(), document.m_timers),
          m_expense(document.m_expenseFilter, document.GetPeriodContext()) {}
    [[nodiscard]] bool Matches(const CVORec& record) const {
        return record.Kind() == RecordKind::Time ? m_time.Matches(static_cast<const CTRecord&>(record))
                                                 : m_expense.Matches(static_cast<const CERecord&>(record));
    }

 private:
    TimeFilter::Prepared m_time;
    ExpenseFilter::Prepared m_expense;
};

void CVelmarchDoc::BuildVisible() {
    for (auto& record : m_shownOnly) m_displaced.push_back(std::move(record));
    m_shownOnly.clear();
    m_visible.clear();
    ++m_placesEdition;
    const BothFilters filters(*this);
    for (CVORec* record = m_records.GetFirst(); record; record = m_records.GetNext()) {
        const bool passes = filters.Matches(*record);
        m_records.SetPlaceHere(passes ? static_cast<std::uint32_t>(m_visible.size()) : VORecPtrCol::kNoPlace);
        if (passes) m_visible.push_back(record);
    }
    m_visibleCount = m_visible.size();
}

bool CVelmarchDoc::Passes(const CVORec& record) const {
    return record.Kind() == RecordKind::Time ? Passes(record, m_timeFilter) : Passes(record, m_expenseFilter);
}

bool CVelmarchDoc::Passes(const CVORec& record, const TimeFilter& filter) const {
    return record.Kind() == RecordKind::Time &&
           filter.Matches(static_cast<const CTRecord&>(record), GetPeriodContext(), m_timers);
}

bool CVelmarchDoc::Passes(const CVORec& record, const ExpenseFilter& filter) const {
    return record.Kind() == RecordKind::Expense &&
           filter.Matches(static_cast<const CERecord&>(record), GetPeriodContext());
}

std::vector<const CVORec*> CVelmarchDoc::CollectPassing(const TimeFilter& filter) {
    const TimeFilter::Prepared prepared(filter, GetPeriodContext(), m_timers);
    std::vector<const CVORec*> passing;
    for (const CVORec* record = m_records.GetFirst(); record; record = m_records.GetNext())
        if (record->Kind() == RecordKind::Time && prepared.Matches(static_cast<const CTRecord&>(*record)))
            passing.push_back(record);
    return passing;
}

std::vector<const CVORec*> CVelmarchDoc::CollectPassing(const ExpenseFilter& filter) {
    const ExpenseFilter::Prepared prepared(filter, GetPeriodContext());
    std::vector<const CVORec*> passing;
    for (const CVORec* record = m_records.GetFirst(); record; record = m_records.GetNext())
        if (record->Kind() == RecordKind::Expense && prepared.Matches(static_cast<const CERecord&>(*record)))
            passing.push_back(record);
    return passing;
}

void CVelmarchDoc::ResetTimeFilter() {
    m_timeFilter.Reset();
    BuildVisible();
}

void CVelmarchDoc::ResetExpenseFilter() {
    m_expenseFilter.Reset();
    BuildVisible();
}

void CVelmarchDoc::CollectTimeIds(QStringList& out) {
    CollectIds(RecordKind::Time, out);
}

void CVelmarchDoc::CollectExpenseIds(QStringList& out) {
    CollectIds(RecordKind::Expense, out);
}

void CVelmarchDoc::CollectIds(RecordKind kind, QStringList& out) {
    out.clear();
    const BothFilters filters(*this);
    for (const CVORec* record = m_records.GetFirst(); record; record = m_records.GetNext())
        if (record->Kind() == kind && filters.Matches(*record)) out.append(record->GetId());
}

const PeriodFilter& CVelmarchDoc::CurrentFilter() const {
    if (theRecordMode == RecordMode::Time) return m_timeFilter;
    return m_expenseFilter;
}

PeriodFilter& CVelmarchDoc::FilterOf(RecordKind kind) {
    if (kind == RecordKind::Time) return m_timeFilter;
    return m_expenseFilter;
}

PeriodContext CVelmarchDoc::GetPeriodContext() const {
    return {m_clock, m_settings.Region(), m_settings.firstDayOfWeek, m_settings.yearDisplayFormat};
}

void CVelmarchDoc::AppendVisible(CVORec& record) {
    m_records.SetPlace(record.GetId(), static_cast<std::uint32_t>(m_visible.size()));
    m_visible.push_back(&record);
    ++m_visibleCount;
}

bool CVelmarchDoc::ReplaceVisible(const QString& id, CVORec& record) {
    const std::uint32_t place = m_records.PlaceOf(id);
    if (place == VORecPtrCol::kNoPlace) return false;
    m_visible[place] = &record;
    return true;
}

void CVelmarchDoc::RemoveVisible(const QString& id) {
    const std::uint32_t place = m_records.PlaceOf(id);
    if (place == VORecPtrCol::kNoPlace) return;
    m_visible[place] = nullptr;  // the others keep their places, so a batch of deletes costs O(batch)
    --m_visibleCount;
    m_records.SetPlace(id, VORecPtrCol::kNoPlace);
}

// --- Finding

CVORec* CVelmarchDoc::FindRecord(const QString& id) const {
    CVORec* loaded = m_records.Find(id);
    return loaded ? loaded : m_fetched.Find(id);
}

CTRecord* CVelmarchDoc::FindTime(const QString& id) const {
    CVORec* record = FindRecord(id);
    return record && record->Kind() == RecordKind::Time ? static_cast<CTRecord*>(record) : nullptr;
}

CERecord* CVelmarchDoc::FindExpense(const QString& id) const {
    CVORec* record = FindRecord(id);
    return record && record->Kind() == RecordKind::Expense ? static_cast<CERecord*>(record) : nullptr;
}

CVORec* CVelmarchDoc::FetchRecord(RecordKind kind, const QString& id) {
    CVORec* loaded = m_records.Find(id);
    if (loaded) return loaded->Kind() == kind ? loaded : nullptr;
    // Nobody tells of changes to a record that isn't loaded, so it is read each time, into the object that
    // an earlier call may have handed out.
    CVORec* known = m_fetched.Find(id);
    if (known && known->Kind() != kind) return nullptr;
    if (!IsIdentity(id)) return nullptr;
    std::unique_ptr<CVORec> fresh = known ? nullptr : NewRecord(kind);
    CVORec& target = known ? *known : *fresh;
    if (!m_store.ReadRecord(target, id)) {
        if (known) m_displaced.push_back(m_fetched.Take(id));
        return nullptr;
    }
    if (fresh) m_fetched.Add(std::move(fresh));
    return &target;
}

std::unique_ptr<CVORec> CVelmarchDoc::CloneRecord(const CVORec& record) {
    const bool isOurs = record.Kind() == RecordKind::Time || record.Kind() == RecordKind::Expense;
    return isOurs ? record.Clone() : nullptr;
}

bool CVelmarchDoc::IsLoadedKind(RecordKind kind) const {
    return kind == m_loadedKind.value_or(KindOf(theRecordMode));
}

// --- Changes: the store first, then memory, then the views

bool CVelmarchDoc::AddRecord(const CVORec& record, const AddChoice& choice, QString* newId) {
    return AddRecord(CloneRecord(record), choice, newId);
}

bool CVelmarchDoc::AddRecord(std::unique_ptr<CVORec> record, const AddChoice& choice, QString* newId) {
    if (!record) return false;
    if (choice.identity == Identity::New) record->GenUnique();
    // A row that was taken in, and whose commit failed, is gone again.
    if (!IsStored(m_store.InsertRecord(*record, choice.commit))) return false;
    const QString id = record->GetId();
    if (choice.hold == Hold::Yes) Accommodate(std::move(record));
    if (newId) *newId = id;
    Announce(Hint::Added, id, choice.notify);
    return true;
}

/// Without asking the filter: who adds a record wants to see it.
void CVelmarchDoc::Accommodate(std::unique_ptr<CVORec> added) {
    CVORec& record = *added;
    if (!IsLoadedKind(record.Kind())) {
        m_fetched.Add(std::move(added));
        return;
    }
    m_records.Add(std::move(added));
    AppendVisible(record);
}

bool CVelmarchDoc::ModifyRecord(const CVORec& record, const QString& id, const ModifyChoice& choice) {
    // the caller's text may belong to the object that is replaced below
    const QString formerId = id;  // NOLINT(performance-unnecessary-copy-initialization)
    if (choice.notify == Notify::Yes) NotifyViews(Hint::AboutToChange, {formerId});
    std::unique_ptr<CVORec> clone = CloneRecord(record);
    if (!clone) return false;
    const QString newId = clone->GetId();
    const bool isShown = ReplaceVisible(formerId, *clone);
    if (!IsStored(m_store.ModifyRecord(*clone, formerId, choice.commit))) {
        // The view shows what was entered, while the collection has what is stored. The next reload mends it.
        if (isShown) m_shownOnly.push_back(std::move(clone));
        return false;
    }
    StandInFor(std::move(clone), isShown, choice.hold);
    Announce(Hint::Changed, newId, choice.notify);
    return true;
}

/// Puts a changed record in the place of the former one wherever that is held.
void CVelmarchDoc::StandInFor(std::unique_ptr<CVORec> changed, bool isShown, Hold hold) {
    if (hold == Hold::Yes && m_records.Replace(changed)) {
        m_displaced.push_back(std::move(changed));
        return;
    }
    if (isShown) {
        m_shownOnly.push_back(std::move(changed));
        return;
    }
    // A record that isn't loaded: where FetchRecord has it, it is kept up to date.
    if (m_fetched.Replace(changed)) m_displaced.push_back(std::move(changed));
}

bool CVelmarchDoc::DeleteRecord(RecordKind kind, const QString& id, Notify notify) {
    // the caller's text may belong to the object that goes
    const QString goneId = id;  // NOLINT(performance-unnecessary-copy-initialization)
    if (notify == Notify::Yes) NotifyViews(Hint::AboutToGo, {goneId});
    RemoveVisible(goneId);
    if (!m_store.DeleteRecord(kind, goneId)) return false;
    std::unique_ptr<CVORec> gone = m_records.Take(goneId);
    if (!gone) gone = m_fetched.Take(goneId);
    // Absent from the collection is a failure where every record of the kind is loaded. A console command
    // deletes without loading, and there the store's word counts.
    if (!gone && m_loadedAll && IsLoadedKind(kind)) return false;
    if (gone) m_displaced.push_back(std::move(gone));
    Announce(Hint::Deleted, goneId, notify);
    return true;
}

void CVelmarchDoc::ReadAnew() {
    const ChangeScope changing(*this);
    if (m_loadedKind) {
        LoadRecords(*m_loadedKind);
        BuildVisible();
        NotifyViews(Hint::Rebuild);
        return;
    }
    m_pendingIds.clear();
    m_visible.clear();
    ++m_placesEdition;
    m_visibleCount = 0;
    m_records.RemoveAll();
    m_fetched.RemoveAll();
}

// --- Telling the views

void CVelmarchDoc::Announce(Hint hint, const QString& id, Notify notify) {
    if (notify == Notify::Yes) NotifyViews(hint, {id});
    if (notify == Notify::Later) m_pendingIds.append(id);
}

void CVelmarchDoc::FlushPending(Hint hint) {
    const QStringList ids = TakePending(0);
    if (!ids.isEmpty()) NotifyViews(hint, ids);
}

QStringList CVelmarchDoc::TakePending(qsizetype from) {
    if (from == 0) return std::exchange(m_pendingIds, {});
    QStringList own = m_pendingIds.mid(from);
    m_pendingIds.resize(std::min(from, m_pendingIds.size()));
    return own;
}

void CVelmarchDoc::NotifyViews(Hint hint, const QStringList& ids) {
    m_views.OnHint(hint, ids);
    const bool told = hint == Hint::Added || hint == Hint::Changed || hint == Hint::Deleted;
    // While a batch is open, its records go on being held: their hint is still to come.
    if (hint == Hint::Rebuild || (told && m_pendingIds.isEmpty())) m_displaced.clear();
}

// --- From the store: all of a kind, what the filter lets pass, what another program changed

void CVelmarchDoc::LoadRecords(RecordKind kind) {
    Load(kind, m_store.SelectAll(kind));
}

void CVelmarchDoc::SwitchMode(RecordMode mode, const std::function<void()>& captureWidths) {
    LoadRecords(KindOf(mode));
    // A command served during the load has loaded the other kind: the later wish holds.
    if (!IsLoadedKind(KindOf(mode))) return;
    if (theRecordMode != mode) {
        if (captureWidths) captureWidths();
        theRecordMode = mode;
    }
    BuildVisible();
    NotifyViews(Hint::Rebuild);
}

void CVelmarchDoc::Load(RecordKind kind, const QString& statement) {
    const CWaitScope waiting(m_pump);
    const unsigned loading = ++m_loading;
    m_pendingIds.clear();
    NotifyViews(Hint::Clear);
    // The visible ones go together with what they point to: a command served during the load finds nothing,
    // but nothing that dangles either.
    m_visible.clear();
    ++m_placesEdition;
    m_visibleCount = 0;
    m_records.RemoveAll();
    m_shownOnly.clear();
    m_displaced.clear();
    m_fetched.RemoveAll();
    m_loadedKind = kind;
    m_loadedAll = false;

    LoadEnd end = LoadBulk(kind, statement, loading);
    // Row by row over what the bulk path added: the same record read twice stands there once.
    if (end == LoadEnd::Failed) end = LoadRowByRow(kind, statement, loading);
    if (loading == m_loading) m_loadedAll = end == LoadEnd::Complete;
}

CVelmarchDoc::LoadEnd CVelmarchDoc::LoadBulk(RecordKind kind, const QString& statement, unsigned loading) {
    CVOSrcMgr& manager = m_store.Manager();
    if (!m_store.Query(statement) || !manager.m_recordset) return LoadEnd::Failed;
    RowTable rows;
    const bool came = manager.m_recordset->GetRows(rows);
    manager.CloseQuery();
    if (!came || rows.ColumnCount() != static_cast<int>(FieldDefsOf(kind).size())) return LoadEnd::Failed;
    m_records.Reserve(rows.RowCount());
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        std::unique_ptr<CVORec> record = NewRecord(kind);
        if (!record->Load(rows, row)) return LoadEnd::Failed;
        Keep(std::move(record));
        if (!MayGoOn(loading)) return LoadEnd::Left;
    }
    return LoadEnd::Complete;
}

/// All rows are read before the first one is added and messages are served: a message's command may run a
/// query of its own, and the manager has only one at a time.
CVelmarchDoc::LoadEnd CVelmarchDoc::LoadRowByRow(RecordKind kind, const QString& statement,
                                                 unsigned loading) {
    std::vector<std::unique_ptr<CVORec>> rows;
    bool complete = m_store.Query(statement);
    while (complete) {
        std::unique_ptr<CVORec> record = NewRecord(kind);
        QString id;
        if (!m_store.NextRecord(*record, id, true)) {
            complete = m_store.m_lastError == 0;
            break;
        }
        rows.push_back(std::move(record));
    }
    m_store.Manager().CloseQuery();
    for (auto& record : rows) {
        Keep(std::move(record));
        if (!MayGoOn(loading)) return LoadEnd::Left;
    }
    return complete ? LoadEnd::Complete : LoadEnd::Failed;
}

/// A command served during the load may have looked up what the bulk path added, so what is displaced lives
/// on until the views are told.
void CVelmarchDoc::Keep(std::unique_ptr<CVORec> loaded) {
    std::unique_ptr<CVORec> displaced = m_records.Add(std::move(loaded));
    if (displaced) m_displaced.push_back(std::move(displaced));
}

/// Serves waiting messages. False when the program is to quit, or when one of the messages has loaded anew:
/// then that load has done the work.
bool CVelmarchDoc::MayGoOn(unsigned loading) {
    return m_pump.Pump() && loading == m_loading;
}

// --- What another program changed

/// Stored records and what they mean for memory and views.
struct CVelmarchDoc::Refresh {
    QStringList gone;     ///< no longer stored
    QStringList leaving;  ///< stored and loaded, but the filter doesn't let them pass any more
    QStringList coming;   ///< new, or the filter lets them pass now
    QStringList unseen;   ///< new, but the filter doesn't let them pass
    QStringList changed;  ///< visible before and after, or neither
    QStringList known;    ///< loaded before and after: those whose former values views may have counted
    std::vector<std::unique_ptr<CVORec>> stored;
};

bool CVelmarchDoc::RefreshRecords(RecordKind kind, const QStringList& ids) {
    if (ids.size() > kMostRefreshed) return false;
    if (!IsLoadedKind(kind)) {
        for (const QString& id : ids)
            if (m_fetched.Contains(id)) (void)FetchRecord(kind, id);
        return true;
    }
    QStringList each = ids;
    each.removeDuplicates();
    Refresh refresh;
    if (!ReadChanges(kind, each, refresh)) return false;

    const QStringList going = refresh.gone + refresh.leaving;
    if (!going.isEmpty()) NotifyViews(Hint::AboutToGo, going);
    if (!refresh.known.isEmpty()) NotifyViews(Hint::AboutToChange, refresh.known);
    for (const QString& id : going) RemoveVisible(id);
    for (const QString& id : std::as_const(refresh.gone)) m_displaced.push_back(m_records.Take(id));
    for (auto& record : refresh.stored) TakeOver(std::move(record));
    for (const QString& id : std::as_const(refresh.coming)) AppendVisible(*m_records.Find(id));
    // The last notice lets go of the displaced objects, and until then views may look at them.
    std::vector<std::unique_ptr<CVORec>> displaced = std::exchange(m_displaced, {});
    if (!going.isEmpty()) NotifyViews(Hint::Deleted, going);
    if (!refresh.changed.isEmpty()) NotifyViews(Hint::Changed, refresh.changed);
    // Who counts records beyond those in sight hears of every new one.
    const QStringList added = refresh.coming + refresh.unseen;
    if (!added.isEmpty()) NotifyViews(Hint::Added, added);
    return true;
}

bool CVelmarchDoc::ReadChanges(RecordKind kind, const QStringList& ids, Refresh& refresh) {
    for (const QString& id : ids) {
        if (!IsIdentity(id)) return false;
        std::unique_ptr<CVORec> record = NewRecord(kind);
        const bool found = m_store.ReadRecord(*record, id);
        if (!found && m_store.m_lastError != 0) return false;
        SortOut(id, found ? std::move(record) : nullptr, refresh);
    }
    return true;
}

void CVelmarchDoc::SortOut(const QString& id, std::unique_ptr<CVORec> stored, Refresh& refresh) {
    const bool isLoaded = m_records.Contains(id);
    if (!stored) {
        if (isLoaded) refresh.gone.append(id);
        return;
    }
    const bool passes = Passes(*stored);
    const bool wasVisible = IsVisible(id);
    if (wasVisible && !passes)
        refresh.leaving.append(id);
    else if (!wasVisible && passes)
        refresh.coming.append(id);
    else if (isLoaded)
        refresh.changed.append(id);
    else
        refresh.unseen.append(id);
    if (isLoaded && (passes || !wasVisible)) refresh.known.append(id);
    refresh.stored.push_back(std::move(stored));
}

void CVelmarchDoc::TakeOver(std::unique_ptr<CVORec> stored) {
    ReplaceVisible(stored->GetId(), *stored);
    if (m_records.Replace(stored))
        m_displaced.push_back(std::move(stored));
    else
        m_records.Add(std::move(stored));
}
