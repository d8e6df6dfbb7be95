#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "platform/host/CMessagePump.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

#include <utility>

// How records come into the document from the store: all of a kind, what the filter lets pass, or what
// another program changed.

void CVelmarchDoc::LoadRecords(RecordKind kind) {
    Load(kind, m_store.SelectAll(kind));
}

void CVelmarchDoc::LoadPassing(RecordKind kind) {
    const PeriodContext context = GetPeriodContext();
    const RowConditions conditions =
        kind == RecordKind::Time ? m_timeFilter.Conditions(context) : m_expenseFilter.Conditions(context);
    Load(kind, m_store.Select(kind, conditions));
    m_loadedAll = m_loadedAll && conditions.IsEmpty();
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
