#include "changes/CRecordChanges.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "app/ListTable.h"
#include "changes/CItemCarrier.h"
#include "changes/CProgress.h"
#include "changes/CTimersOfRecords.h"
#include "changes/RecordQuestions.h"
#include "changes/RecordReplacer.h"
#include "config/Settings.h"
#include "entry/CEnteredItems.h"
#include "entry/RecordMarks.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/NamedChange.h"

#include <memory>
#include <utility>

bool CRecordChanges::Confirmed(const RecordQuestion& question) const {
    return m_context.prompt.Ask({.textId = static_cast<int>(question.text),
                                 .title = LoadText(question.title),
                                 .text = question.words,
                                 .icon = BoxIcon::Warning,
                                 .buttons = Buttons::YesNo,
                                 .defaultAnswer = Answer::No,
                                 .actionLabel = LoadText(question.title),
                                 .onReturn = question.onReturn}) == Answer::Yes;
}

// --- One record

Outcome CRecordChanges::Add(const CVORec& record, Identity identity) {
    const NamedChange named(m_context.document.Store(), ChangeKind::Add);
    return ChangeWithItems([&] {
        QString id;
        if (!m_context.document.AddRecord(record, {Notify::Yes, Commit::Now, identity}, &id))
            return Outcome::Failed(Outcome::Failure::Record);
        return Outcome::Done({id});
    });
}

Outcome CRecordChanges::Edit(const CVORec& record, const QString& id) {
    const NamedChange named(m_context.document.Store(), ChangeKind::Edit);
    // The record that has the identity goes. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QString formerId = id;
    Outcome outcome = ChangeWithItems([&] {
        return m_context.document.ModifyRecord(record, formerId, {Notify::Yes, Commit::Now})
                   ? Outcome::Done({record.GetId()})
                   : Outcome::Failed(Outcome::Failure::Record);
    });
    if (outcome) return outcome;
    outcome.failedId = formerId;
    ShowStored(record.Kind(), formerId);
    return outcome;
}

/// A change of a record that commits by itself, in one transaction with the texts for the pick lists.
Outcome CRecordChanges::ChangeWithItems(const std::function<Outcome()>& change) {
    const std::vector<ListText> texts = m_context.entered.Take();
    if (texts.empty()) return change();
    const StoreTransaction transaction(m_context.document.Store());
    if (!transaction.IsOpen()) return Outcome::Failed(Outcome::Failure::Opening);
    auto items = m_context.catalogue.PutItems(texts);
    if (!items) return Outcome::Failed(Outcome::Failure::Item);
    Outcome outcome = change();
    if (!outcome) return outcome;
    outcome.hasNewItems = !items->empty();
    m_context.catalogue.TakeUp(std::move(*items));
    return outcome;
}

/// What could not be stored is shown all the same; a store that can't be read now has told so.
void CRecordChanges::ShowStored(RecordKind kind, const QString& id) {
    if (m_context.document.IsVisible(id)) static_cast<void>(m_context.document.RefreshRecords(kind, {id}));
}

// --- Several records

Outcome CRecordChanges::Delete(RecordKind kind, const QStringList& ids, Ask ask) {
    if (ids.isEmpty()) return Outcome::Nothing();
    const bool isAsked = ask == Ask::Always || (ask == Ask::BySetting && m_context.settings.confirmDelete);
    if (isAsked && !Confirmed(DeleteQuestion(static_cast<int>(ids.size())))) return Outcome::Declined();
    CVelmarchDoc& document = m_context.document;
    const NamedChange named(document.Store(), ChangeKind::Delete);
    QHash<QString, QByteArray> timers;
    Outcome outcome = Run({.ids = ids,
                           .progress = FormatText<Text::ProgressDelete>(static_cast<int>(ids.size())),
                           .hint = Hint::Deleted,
                           .prepare =
                               [&] {
                                   timers = m_context.timers.Images(ids);
                                   document.NotifyViews(Hint::AboutToGo, ids);
                               },
                           .step =
                               [&](const QString& id) {
                                   const QByteArray timer = timers.value(id);
                                   if (!document.DeleteRecord(kind, id, Notify::Later)) return false;
                                   NoteTimer(id, timer);
                                   return true;
                               }});
    // Where they can't be saved without them, timers of records that are gone go with the next fold.
    if (outcome.commit == CommitEnd::Durable)
        static_cast<void>(m_context.timers.Drop(m_context.timers.Timed(outcome.ids)));
    // What stayed, because one failed or the user cancelled, was taken out of the views before, and one that
    // failed out of what the document shows, too.
    if (outcome.commit != CommitEnd::Undone && outcome.ids.size() < ids.size()) {
        document.BuildVisible();
        document.NotifyViews(Hint::Rebuild);
    }
    return outcome;
}

/// So that undoing the delete brings it back.
void CRecordChanges::NoteTimer(const QString& id, const QByteArray& image) {
    CStoreJournal* journal = m_context.document.Store().Manager().Journal();
    if (journal && !image.isEmpty()) journal->NoteTimer(id, image);
}

Outcome CRecordChanges::AddAll(CRecordSource& source, Hold hold) {
    CVelmarchDoc& document = m_context.document;
    const NamedChange named(document.Store(), ChangeKind::Import);
    const qsizetype othersPending = document.PendingCount();
    std::optional<CPulldownCatalogue::NewItems> items;
    Outcome outcome = AddInTransaction(source, hold, items);
    const QStringList added = document.TakePending(othersPending);
    if (outcome.failure == Outcome::Failure::Opening) return outcome;
    if (outcome.commit == CommitEnd::Undone) {
        document.ReadAnew();
        return outcome;
    }
    outcome.hasNewItems = !items->empty();
    m_context.catalogue.TakeUp(std::move(*items));
    outcome.ids = added;
    if (!added.isEmpty()) document.NotifyViews(Hint::Added, added);
    return outcome;
}

Outcome CRecordChanges::AddInTransaction(CRecordSource& source, Hold hold,
                                         std::optional<CPulldownCatalogue::NewItems>& items) {
    const CVelmarchDoc::ChangeScope changing(m_context.document);
    StoreTransaction transaction(m_context.document.Store());
    if (!transaction.IsOpen()) return Outcome::Failed(Outcome::Failure::Opening);
    m_context.progress.Begin(source.Progress(), source.Count());
    Outcome outcome = Outcome::Nothing();
    WalkAndStore(source, hold, outcome);
    if (outcome && !(items = m_context.catalogue.PutItems(source.ListTexts())))
        outcome = Outcome::Failed(Outcome::Failure::Item);
    if (outcome)
        Commit(transaction, outcome);
    else
        outcome.commit = CommitEnd::Undone;
    m_context.progress.End();
    return outcome;
}

/// What has failed by then isn't known before the last record is stored.
void CRecordChanges::WalkAndStore(CRecordSource& source, Hold hold, Outcome& outcome) {
    CRecordStore& store = m_context.document.Store();
    const CVOSrcMgr::Bulk bulk(store.Manager());
    WalkSource(source, hold, outcome);
    if (outcome && !store.SettleInserts()) outcome = Outcome::Failed(Outcome::Failure::Record);
}

void CRecordChanges::WalkSource(CRecordSource& source, Hold hold, Outcome& outcome) {
    const Notify notify = hold == Hold::Yes ? Notify::Later : Notify::No;
    while (true) {
        const CRecordSource::Next next = source.Read();
        if (next == CRecordSource::Next::End) return;
        QString id;
        if (next == CRecordSource::Next::Failed ||
            !m_context.document.AddRecord(source.TakeRecord(), {notify, ::Commit::Later, Identity::New, hold},
                                          &id)) {
            outcome = Outcome::Failed(Outcome::Failure::Record);
            return;
        }
        source.NoteAdded(id);
        if (m_context.progress.Advance()) continue;
        outcome.end = Outcome::End::Cancelled;
        return;
    }
}

Outcome CRecordChanges::AddItems(const std::vector<ListText>& texts, int& added) {
    added = 0;
    StoreTransaction transaction(m_context.document.Store());
    if (!transaction.IsOpen()) return Outcome::Failed(Outcome::Failure::Opening);
    auto items = m_context.catalogue.PutItems(texts);
    if (!items) return Outcome::Failed(Outcome::Failure::Item);
    Outcome outcome = Outcome::Nothing();
    Commit(transaction, outcome);
    if (!outcome) return outcome;
    added = static_cast<int>(items->size());
    outcome.hasNewItems = added > 0;
    m_context.catalogue.TakeUp(std::move(*items));
    return outcome;
}

Outcome CRecordChanges::Copy(RecordKind kind, const QStringList& ids) {
    if (ids.isEmpty()) return Outcome::Nothing();
    if (m_context.settings.confirmCopy && !Confirmed(CopyQuestion(static_cast<int>(ids.size()))))
        return Outcome::Declined();
    CVelmarchDoc& document = m_context.document;
    const NamedChange named(document.Store(), ChangeKind::Copy);
    return Run(
        {.ids = ids,
         .progress = FormatText<Text::ProgressCopy>(static_cast<int>(ids.size())),
         .hint = Hint::Added,
         .prepare = {},
         .step = [&](const QString& id) {
             const CVORec* record = document.FetchRecord(kind, id);
             return record && document.AddRecord(*record, {Notify::Later, Commit::Later, Identity::New});
         }});
}

Outcome CRecordChanges::SetMark(RecordKind kind, RecordMark mark, const QStringList& ids, Ask ask) {
    if (ids.isEmpty() || !IsMarkOf(kind, mark)) return Outcome::Nothing();
    if (ask == Ask::BySetting && m_context.settings.confirmMark &&
        !Confirmed(MarkQuestion(static_cast<int>(ids.size()), kind, mark, m_context.catalogue.Labels())))
        return Outcome::Declined();
    const NamedChange named(m_context.document.Store(), ChangeKind::Mark);
    Outcome outcome = Run({.ids = ids,
                           .progress = FormatText<Text::ProgressMark>(static_cast<int>(ids.size())),
                           .hint = Hint::Changed,
                           .prepare = {},
                           .step = [&](const QString& id) { return MarkOne(kind, mark, id); }});
    // The one that could not be stored bears the mark in the views.
    if (outcome.commit != CommitEnd::Undone) ShowStored(kind, outcome.failedId);
    return outcome;
}

bool CRecordChanges::MarkOne(RecordKind kind, RecordMark mark, const QString& id) {
    CVelmarchDoc& document = m_context.document;
    const CVORec* record = document.FetchRecord(kind, id);
    if (!record) return document.Store().m_lastError == 0;
    const std::unique_ptr<CVORec> marked = CVelmarchDoc::CloneRecord(*record);
    if (!::SetMark(*marked, mark)) return true;
    document.NotifyViews(Hint::AboutToChange, {id});
    return document.ModifyRecord(*marked, id, {Notify::Later, ::Commit::Later});
}

Outcome CRecordChanges::ReplaceInRecords(int list, const QString& oldText, const QString& newText) {
    const ListRow* row = FindRecordList(list);
    if (!row || oldText.isEmpty() || newText.isEmpty() || oldText == newText) return Outcome::Nothing();
    Outcome outcome = RecordReplacer(m_context.document).Replace(*row, oldText, newText);
    if (outcome) Carry(list, oldText, newText, outcome);
    return outcome;
}

Outcome CRecordChanges::RenameInRecords(int list, const QString& oldText, const QString& newText) {
    const ListRow* row = FindRecordList(list);
    if (!row || oldText.isEmpty() || newText.isEmpty()) return Outcome::Failed(Outcome::Failure::Item);
    CPulldownCatalogue& catalogue = m_context.catalogue;
    const NamedChange named(m_context.document.Store(), ChangeKind::Rename,
                            {oldText, newText, LoadText(row->title)});
    Outcome outcome = RecordReplacer(m_context.document).Replace(*row, oldText, newText, [&] {
        return catalogue.PutRenamed(list, oldText, newText);
    });
    if (!outcome) return outcome;
    catalogue.TakeUpRenamed(list, oldText, newText);
    Carry(list, oldText, newText, outcome);
    return outcome;
}

Outcome CRecordChanges::MergeItems(int list, const QString& goneText, const QString& keptText) {
    const ListRow* row = FindRecordList(list);
    if (!row || goneText.isEmpty() || keptText.isEmpty()) return Outcome::Failed(Outcome::Failure::Item);
    CPulldownCatalogue& catalogue = m_context.catalogue;
    const NamedChange named(m_context.document.Store(), ChangeKind::Merge,
                            {goneText, keptText, LoadText(row->title)});
    Outcome outcome = RecordReplacer(m_context.document).Replace(*row, goneText, keptText, [&] {
        return catalogue.PutMerged(list, goneText, keptText);
    });
    if (!outcome) return outcome;
    catalogue.TakeUpMerged(list, goneText, keptText);
    Carry(list, goneText, keptText, outcome);
    return outcome;
}

/// What is stored with the old text would find nothing from now on. A change of its own, as it is one of
/// another file: where it fails, which is told, the records are changed all the same.
void CRecordChanges::Carry(int list, const QString& oldText, const QString& newText, Outcome& outcome) {
    if (!m_context.carrier) return;
    const std::optional<int> carried = m_context.carrier->Carry(list, oldText, newText);
    outcome.carried = carried.value_or(0);
    outcome.isCarried = carried.has_value();
}

// --- How several records change

Outcome CRecordChanges::Run(const Batch& batch) {
    CVelmarchDoc& document = m_context.document;
    const qsizetype othersPending = document.PendingCount();
    Outcome outcome = RunInTransaction(batch);
    const QStringList changed = document.TakePending(othersPending);
    if (outcome.failure == Outcome::Failure::Opening) return outcome;
    if (outcome.commit == CommitEnd::Undone) {
        document.ReadAnew();
        return outcome;
    }
    outcome.ids = changed;
    if (!changed.isEmpty()) document.NotifyViews(batch.hint, changed);
    return outcome;
}

/// The progress is on the screen before the views are told, which takes its time with many records. One
/// transaction around all of them: 5,000 deletes are one wait for the disk, not 5,000.
Outcome CRecordChanges::RunInTransaction(const Batch& batch) {
    const CVelmarchDoc::ChangeScope changing(m_context.document);
    StoreTransaction transaction(m_context.document.Store());
    if (!transaction.IsOpen()) return Outcome::Failed(Outcome::Failure::Opening);
    m_context.progress.Begin(batch.progress, static_cast<int>(batch.ids.size()));
    if (batch.prepare) batch.prepare();
    Outcome outcome = Outcome::Nothing();
    Walk(batch, outcome);
    if (outcome || m_context.partial == Partial::Kept)
        Commit(transaction, outcome);
    else
        outcome.commit = CommitEnd::Undone;
    m_context.progress.End();
    return outcome;
}

void CRecordChanges::Walk(const Batch& batch, Outcome& outcome) {
    for (const QString& id : batch.ids) {
        if (!m_context.progress.Advance()) {
            outcome.end = Outcome::End::Cancelled;
            return;
        }
        if (batch.step(id)) continue;
        outcome.end = Outcome::End::Failed;
        outcome.failure = Outcome::Failure::Record;
        outcome.failedId = id;
        return;
    }
}

void CRecordChanges::Commit(StoreTransaction& transaction, Outcome& outcome) {
    outcome.commit = transaction.Commit();
    if (outcome.commit == CommitEnd::Durable) return;
    outcome.end = Outcome::End::Failed;
    outcome.failure = Outcome::Failure::Commit;
}
