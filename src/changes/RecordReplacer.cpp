#include "changes/RecordReplacer.h"

#include "app/CVelmarchDoc.h"
#include "app/ListTable.h"
#include "lang/FormatText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/NamedChange.h"
#include "records/QuoteText.h"
#include "records/RecordFactory.h"

QString& RecordReplacer::Field::Of(CVORec& record) const {
    return kind == RecordKind::Time ? static_cast<CTRecord&>(record).*row.timeField
                                    : static_cast<CERecord&>(record).*row.expenseField;
}

RecordReplacer::RecordReplacer(CVelmarchDoc& document) : m_document(document), m_store(document.Store()) {}

Outcome RecordReplacer::Replace(const ListRow& row, const QString& oldText, const QString& newText,
                                const std::function<bool()>& alongside) {
    const NamedChange named(m_store, ChangeKind::Replace, {oldText, newText});
    std::vector<Batch> batches = Batches(row);
    const qsizetype othersPending = m_document.PendingCount();
    Outcome outcome = ReplaceAll(batches, oldText, newText, alongside);
    static_cast<void>(m_document.TakePending(othersPending));  // each batch has its own notice
    // Before the views were told that something is about to change.
    if (outcome.failure == Outcome::Failure::Opening || outcome.failure == Outcome::Failure::Item)
        return outcome;
    Announce(batches, outcome.commit == CommitEnd::Durable, oldText);
    return outcome;
}

/// The search belongs to the change: no other program alters a record in between.
Outcome RecordReplacer::ReplaceAll(std::vector<Batch>& batches, const QString& oldText,
                                   const QString& newText, const std::function<bool()>& alongside) {
    const CVelmarchDoc::ChangeScope changing(m_document);
    StoreTransaction change(m_store);
    if (!change.IsOpen() || !FindHolders(batches, oldText)) return Outcome::Failed(Outcome::Failure::Opening);
    if (alongside && !alongside()) return Outcome::Failed(Outcome::Failure::Item);
    for (const Batch& batch : batches)
        if (batch.isShown && !batch.ids.isEmpty()) m_document.NotifyViews(Hint::AboutToChange, batch.ids);
    Outcome outcome = ChangeAll(batches, newText);
    if (outcome) {
        outcome.commit = change.Commit();
        if (outcome.commit != CommitEnd::Durable) outcome = Outcome::Failed(Outcome::Failure::Commit);
    }
    return outcome;
}

bool RecordReplacer::FindHolders(std::vector<Batch>& batches, const QString& oldText) {
    for (Batch& batch : batches) {
        const std::optional<QStringList> ids = Holders(batch.field, oldText);
        if (!ids) return false;
        batch.ids = *ids;
    }
    return true;
}

Outcome RecordReplacer::ChangeAll(std::vector<Batch>& batches, const QString& newText) {
    Outcome outcome = Outcome::Nothing();
    for (Batch& batch : batches) {
        if (!Change(batch, newText)) {
            outcome = Outcome::Failed(Outcome::Failure::Record);
            outcome.failedId = batch.ids[batch.done];
            return outcome;
        }
        outcome.ids += batch.ids;
    }
    return outcome;
}

std::vector<RecordReplacer::Batch> RecordReplacer::Batches(const ListRow& row) const {
    const RecordKind shown = KindOf(theRecordMode);
    std::vector<Batch> batches;
    if (row.timeField) batches.push_back({{RecordKind::Time, row}, shown == RecordKind::Time, {}});
    if (row.expenseField) batches.push_back({{RecordKind::Expense, row}, shown == RecordKind::Expense, {}});
    return batches;
}

/// The identities of the records that hold a text; nothing when they can't be read.
std::optional<QStringList> RecordReplacer::Holders(const Field& field, const QString& text) {
    const Text column = field.kind == RecordKind::Time ? CTRecord::ColumnOf(field.row.timeField)
                                                       : CERecord::ColumnOf(field.row.expenseField);
    QStringList ids;
    const QString statement =
        FormatText<Text::SqlIdentitiesOf>(m_store.TableName(field.kind), LoadText(column), QuoteText(text));
    return m_store.QueryTexts(statement, ids) ? std::optional(ids) : std::nullopt;
}

/// Each record as it is stored, so that it needn't be loaded, and what another program wrote into it stays.
bool RecordReplacer::Change(Batch& batch, const QString& newText) {
    for (const QString& id : batch.ids) {
        const std::unique_ptr<CVORec> record = NewRecord(batch.field.kind);
        if (!m_store.ReadRecord(*record, id)) return false;
        batch.field.Of(*record) = newText;
        const ModifyChoice choice{.notify = batch.isShown ? Notify::Later : Notify::No,
                                  .commit = Commit::Later,
                                  .hold = batch.isShown ? Hold::Yes : Hold::No};
        if (!m_document.ModifyRecord(*record, id, choice)) return false;
        ++batch.done;
    }
    return true;
}

/// The views hear of every record that they were warned of, so that a tree counts right again.
void RecordReplacer::Announce(const std::vector<Batch>& batches, bool isDone, const QString& oldText) {
    for (const Batch& batch : batches) {
        if (batch.ids.isEmpty()) continue;
        if (!batch.isShown) {
            // Those that were read one by one show again what is stored.
            for (const QString& id : isDone ? QStringList() : batch.ids)
                if (m_document.FindRecord(id)) (void)m_document.FetchRecord(batch.field.kind, id);
            continue;
        }
        if (!isDone) PutBack(batch, oldText);
        m_document.NotifyViews(Hint::Changed, batch.ids);
        if (isDone || batch.done == batch.ids.size()) continue;
        const QString& failed = batch.ids[batch.done];
        if (m_document.IsVisible(failed)) (void)m_document.RefreshRecords(batch.field.kind, {failed});
    }
}

/// After a failure nothing of the batch is stored: memory goes back to the old text, too. The record that
/// failed isn't among them: the document has kept it, and only shows the new text until it is read anew.
void RecordReplacer::PutBack(const Batch& batch, const QString& oldText) {
    for (const QString& id : batch.ids.first(batch.done))
        if (CVORec* record = m_document.FindRecord(id)) batch.field.Of(*record) = oldText;
}
