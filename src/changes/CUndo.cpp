#include "changes/CUndo.h"

#include "changes/CTimersOfRecords.h"
#include "changes/ChangeNames.h"
#include "changes/HistoryTables.h"
#include "lang/FormatText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CRecordStore.h"
#include "records/StoreTransaction.h"

namespace {

UndoOutcome Refused(const QString& words) {
    return {.end = UndoOutcome::End::Refused, .words = words, .times = {}, .expenses = {}};
}

UndoOutcome Nothing(CHistory::Way way) {
    const bool isUndo = way == CHistory::Way::Undo;
    return {.end = UndoOutcome::End::Nothing,
            .words = LoadText(isUndo ? Text::HistoryNothingToUndo : Text::HistoryNothingToRedo),
            .times = {},
            .expenses = {}};
}

/// What a row is to the user.
QString NameOf(const RowOp& op) {
    const QString key = QString::fromUtf8(op.key);
    switch (static_cast<HistoryTable>(op.table)) {
        case HistoryTable::Item:
            return FormatText<Text::HistoryItemName>(key);
        case HistoryTable::Dependency:
            return LoadText(Text::HistoryTreeName);
        default:
            return FormatText<Text::HistoryRecordName>(key);
    }
}

void Note(const RowOp& op, UndoOutcome& outcome) {
    const auto table = static_cast<HistoryTable>(op.table);
    if (table == HistoryTable::Time)
        outcome.times.append(QString::fromUtf8(op.key));
    else if (table == HistoryTable::Expense)
        outcome.expenses.append(QString::fromUtf8(op.key));
    else
        outcome.hasLists = true;
}

}  // namespace

std::optional<std::vector<HistoryRow>> CUndo::Changes() {
    return m_context.history.Changes(m_context.store.Manager().File());
}

/// What is next is looked for within the transaction: from there on no other program undoes the same.
UndoOutcome CUndo::Run(CHistory::Way way) {
    StoreTransaction transaction(m_context.store);
    if (!transaction.IsOpen()) return Refused({});
    UndoOutcome outcome = RunWithin(way);
    if (!outcome) return outcome;
    if (transaction.Commit() != CommitEnd::Durable) return Refused({});
    return outcome;
}

UndoOutcome CUndo::RunWithin(CHistory::Way way) {
    const auto changes = Changes();
    if (!changes) return Refused(FormatText<Text::HistoryBusy>(m_context.history.Error()));
    const HistoryRow* next = CHistory::Next(*changes, way);
    if (!next) return Nothing(way);
    const QString name = ChangeName(next->kind, next->count);
    if (next->state == ChangeState::TooLarge)
        return Refused(FormatText<Text::HistoryTooLarge>(name, CHistory::kMegabytes));
    UndoOutcome outcome = RevertAll(*next);
    if (!outcome) return outcome;
    if (const QString timed = TimedRecord(outcome.times); !timed.isEmpty())
        return Refused(FormatText<Text::HistoryTimed>(name, timed));
    if (!m_context.history.NoteWay(*next, way))
        return Refused(FormatText<Text::HistoryFailed>(name, m_context.history.Error()));
    outcome.words = name;
    return outcome;
}

/// The last row first.
UndoOutcome CUndo::RevertAll(const HistoryRow& change) {
    UndoOutcome outcome{.end = UndoOutcome::End::Done, .words = {}, .times = {}, .expenses = {}};
    const auto parts = m_context.history.Parts(change);
    if (!parts || parts->empty())
        return Refused(FormatText<Text::HistoryUnreadable>(ChangeName(change.kind, change.count),
                                                           m_context.history.Error()));
    RowReverter reverter(m_context.store.Manager().File(), HistoryTables());
    for (auto part = parts->crbegin(); part != parts->crend(); ++part)
        if (const QString why = RevertPart(*part, change, reverter, outcome); !why.isEmpty())
            return Refused(why);
    outcome.times.removeDuplicates();
    outcome.expenses.removeDuplicates();
    return outcome;
}

/// Why it can't be; empty when it is done.
QString CUndo::RevertPart(const QByteArray& part, const HistoryRow& change, RowReverter& reverter,
                          UndoOutcome& outcome) {
    const QString name = ChangeName(change.kind, change.count);
    const auto ops = RowLog::Read(part);
    if (!ops) return FormatText<Text::HistoryUnreadable>(name, m_context.history.Error());
    for (auto op = ops->crbegin(); op != ops->crend(); ++op) {
        const RowReverter::End end = reverter.Revert(*op);
        if (end != RowReverter::End::Done) return WhyNotReverted(end, *op, name);
        Note(*op, outcome);
    }
    return {};
}

QString CUndo::WhyNotReverted(RowReverter::End end, const RowOp& op, const QString& name) {
    if (end == RowReverter::End::Touched) return FormatText<Text::HistoryTouched>(name, NameOf(op));
    return FormatText<Text::HistoryFailed>(name, m_context.store.Manager().File().Error());
}

/// One of the records that has a timer; empty when none has.
QString CUndo::TimedRecord(const QStringList& times) {
    if (times.isEmpty()) return {};
    return m_context.timers.Timed(times).value(0);
}
