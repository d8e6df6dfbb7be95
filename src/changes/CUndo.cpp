#include "changes/CUndo.h"

#include "changes/CTimersOfRecords.h"
#include "changes/ChangeNames.h"
#include "changes/HistoryTables.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CRecordStore.h"
#include "records/StoreTransaction.h"

#include <algorithm>
#include <iterator>

namespace {

using Way = CHistory::Way;

/// So many changes are looked at for one that can be taken in place of the next.
constexpr std::size_t kMostPassedOver = 100;

UndoOutcome Refused(const QString& words) {
    return {.end = UndoOutcome::End::Refused, .words = words};
}

UndoOutcome Nothing(Way way) {
    return {.end = UndoOutcome::End::Nothing,
            .words = LoadText(way == Way::Undo ? Text::HistoryNothingToUndo : Text::HistoryNothingToRedo)};
}

HistoryTable TableOf(const RowOp& op) {
    return static_cast<HistoryTable>(op.table);
}

/// What a row is to the user.
QString NameOf(const RowOp& op) {
    const QString key = QString::fromUtf8(op.key);
    switch (TableOf(op)) {
        case HistoryTable::Item:
            return FormatText<Text::HistoryItemName>(key);
        case HistoryTable::Dependency:
            return LoadText(Text::HistoryTreeName);
        case HistoryTable::Entry:
            return EntryWords(EntryNameOf(op).value_or(EntryName{}));
        default:
            return FormatText<Text::HistoryRecordName>(key);
    }
}

void Note(const RowOp& op, UndoOutcome& outcome) {
    const QString key = QString::fromUtf8(op.key);
    if (TableOf(op) == HistoryTable::Time)
        outcome.times.append(key);
    else if (TableOf(op) == HistoryTable::Expense)
        outcome.expenses.append(key);
    else
        outcome.hasLists = true;
}

/// A refusal where nothing is kept of a change; without words where there is.
UndoOutcome WhyNot(const HistoryRow& change, const QString& name) {
    return Refused(change.state == ChangeState::TooLarge
                       ? FormatText<Text::HistoryTooLarge>(name, CHistory::kMegabytes)
                       : QString());
}

QString WhyNotReverted(RowReverter::End end, const RowOp& op, const QString& name, const QString& error) {
    if (end == RowReverter::End::Touched) return FormatText<Text::HistoryTouched>(name, NameOf(op));
    return FormatText<Text::HistoryFailed>(name, error);
}

}  // namespace

std::optional<std::vector<HistoryRow>> CUndo::Changes() {
    return m_context.history.Changes(m_context.store.Manager().File());
}

QString CUndo::NextName(const std::vector<HistoryRow>& changes, Way way) {
    const std::vector<HistoryStep> steps = StepsOf(changes, way);
    return steps.empty() ? QString() : ChangeName(steps.front().change);
}

UndoOutcome CUndo::Run(Way way) {
    UndoOutcome outcome = Attempt(way, 0, Mode::Real);
    if (outcome.end == UndoOutcome::End::Refused && !outcome.words.isEmpty())
        outcome.instead = NameInstead(way);
    return outcome;
}

/// Empty when no other change can be taken.
QString CUndo::NameInstead(Way way) {
    for (std::size_t place = 1; place < kMostPassedOver; ++place) {
        const UndoOutcome trial = Attempt(way, place, Mode::Trial);
        if (trial.end != UndoOutcome::End::Refused) return trial ? trial.words : QString();
    }
    return {};
}

UndoOutcome CUndo::RunPast(Way way) {
    UndoOutcome first = Attempt(way, 0, Mode::Real);
    if (first.end != UndoOutcome::End::Refused) return first;
    QStringList passedOver{first.name};
    for (std::size_t place = 1; place < kMostPassedOver; ++place) {
        UndoOutcome outcome = Attempt(way, place, Mode::Real);
        outcome.passedOver = passedOver;
        if (outcome) return outcome;
        if (outcome.end == UndoOutcome::End::Nothing) break;
        passedOver.append(outcome.name);
    }
    first.words += u' ' + LoadText(Text::HistoryNothingBeyond);
    return first;
}

/// What is next is looked for within the transaction: from there on no other program undoes the same. place:
/// how many changes are passed over.
UndoOutcome CUndo::Attempt(Way way, std::size_t place, Mode mode) {
    Beside beside;
    UndoOutcome outcome;
    {
        StoreTransaction transaction(m_context.store);
        if (!transaction.IsOpen()) return Refused({});
        outcome = AttemptWithin(way, place, mode, beside);
        if (outcome && mode == Mode::Real && transaction.Commit() != CommitEnd::Durable)
            outcome = Refused({});
    }
    if (mode == Mode::Trial) return outcome;
    if (outcome)
        MoveTimers(beside, outcome);
    else if (beside.carried)
        MakeGood(beside, way);
    return outcome;
}

UndoOutcome CUndo::AttemptWithin(Way way, std::size_t place, Mode mode, Beside& beside) {
    const auto changes = Changes();
    if (!changes) return Refused(FormatText<Text::HistoryBusy>(m_context.history.Error()));
    const std::vector<HistoryStep> steps = StepsOf(*changes, way);
    if (place >= steps.size()) return Nothing(way);
    const HistoryStep& step = steps[place];
    const QString name = ChangeName(step.change);
    UndoOutcome outcome = WhyNot(step.change, name);
    if (outcome.words.isEmpty() && !ConcernsAnyOf(steps, place)) outcome = TakeStep(step, way, mode, beside);
    outcome.name = name;
    if (outcome) outcome.words = name;
    return outcome;
}

// --- Passing over

/// Whether a change has a row in common with those before it. Those of which it isn't known what they changed
/// are held against the rows alone.
bool CUndo::ConcernsAnyOf(const std::vector<HistoryStep>& steps, std::size_t place) {
    QSet<QByteArray> passed, own;
    for (std::size_t at = 0; at < place; ++at) {
        CollectKeys(steps[at].change, passed);
        if (steps[at].carried) CollectKeys(*steps[at].carried, passed);
    }
    if (passed.isEmpty()) return false;
    CollectKeys(steps[place].change, own);
    if (steps[place].carried) CollectKeys(*steps[place].carried, own);
    return passed.intersects(own);
}

void CUndo::CollectKeys(const HistoryRow& change, QSet<QByteArray>& keys) {
    for (const RowOp& op : OpsOf(change).value_or(std::vector<RowOp>()))
        keys.insert(static_cast<char>(op.table) + op.key);
}

// --- One step

/// Store and settings are two files: what was carried into the settings goes back first, when all else could
/// be done, and is made good again where the store then can't be written.
UndoOutcome CUndo::TakeStep(const HistoryStep& step, Way way, Mode mode, Beside& beside) {
    if (IsOfSettings(step.change)) return TakeEntries(step.change, way, mode);
    const QString name = ChangeName(step.change);
    UndoOutcome outcome{.end = UndoOutcome::End::Done};
    QString why = RevertRows(step.change, outcome, beside);
    if (why.isEmpty()) why = PlanTimers(name, outcome.times, beside);
    if (!why.isEmpty()) return Refused(why);
    if (step.carried) {
        UndoOutcome carried = TakeEntries(*step.carried, way, mode);
        if (!carried) return carried;
        beside.carried = step.carried->number;
    }
    if (mode == Mode::Trial || m_context.history.NoteWay(step.change, way)) return outcome;
    return Refused(FormatText<Text::HistoryFailed>(name, m_context.history.Error()));
}

UndoOutcome CUndo::TakeEntries(const HistoryRow& change, Way way, Mode mode) {
    const QString name = ChangeName(change);
    QString why;
    const bool isDone = m_context.settings.Tree().Change([&] {
        why = RevertEntries(change);
        if (!why.isEmpty() || mode == Mode::Trial) return false;
        HistoryRow row = change;
        row.state = StateAfter(way, false);
        if (!m_context.history.Entries().NoteWay(row))
            why = FormatText<Text::HistoryFailed>(name, m_context.history.Error());
        return why.isEmpty();
    });
    if (!why.isEmpty()) return Refused(why);
    if (!isDone && mode == Mode::Real)
        return Refused(FormatText<Text::HistoryFailed>(name, m_context.settings.Tree().Error()));
    return {.end = UndoOutcome::End::Done};
}

/// Why it can't be; empty when it is done. The last one first.
QString CUndo::RevertEntries(const HistoryRow& change) {
    const QString name = ChangeName(change);
    const auto ops = OpsOf(change);
    if (!ops) return FormatText<Text::HistoryUnreadable>(name, m_context.history.Error());
    for (auto op = ops->crbegin(); op != ops->crend(); ++op) {
        const RowReverter::End end = RevertEntry(*op, m_context.settings);
        if (end != RowReverter::End::Done)
            return WhyNotReverted(end, *op, name, m_context.settings.Tree().Error());
    }
    return {};
}

/// All changed rows of a change in their order; nothing when they can't be read.
std::optional<std::vector<RowOp>> CUndo::OpsOf(const HistoryRow& change) {
    const auto parts = m_context.history.Parts(change);
    if (!parts || parts->empty()) return std::nullopt;
    std::vector<RowOp> all;
    for (const QByteArray& part : *parts) {
        auto ops = RowLog::Read(part);
        if (!ops) return std::nullopt;
        std::ranges::move(*ops, std::back_inserter(all));
    }
    return all;
}

/// Block by block, as there may be a million rows.
QString CUndo::RevertRows(const HistoryRow& change, UndoOutcome& outcome, Beside& beside) {
    const QString name = ChangeName(change);
    const auto parts = m_context.history.Parts(change);
    if (!parts || parts->empty()) return FormatText<Text::HistoryUnreadable>(name, m_context.history.Error());
    RowReverter reverter(m_context.store.Manager().File(), HistoryTables());
    for (auto part = parts->crbegin(); part != parts->crend(); ++part) {
        const auto ops = RowLog::Read(*part);
        if (!ops) return FormatText<Text::HistoryUnreadable>(name, m_context.history.Error());
        for (auto op = ops->crbegin(); op != ops->crend(); ++op)
            if (QString why = RevertOp(*op, name, reverter, outcome, beside); !why.isEmpty()) return why;
    }
    outcome.times.removeDuplicates();
    outcome.expenses.removeDuplicates();
    return {};
}

QString CUndo::RevertOp(const RowOp& op, const QString& name, RowReverter& reverter, UndoOutcome& outcome,
                        Beside& beside) {
    if (TableOf(op) == HistoryTable::Timer) {
        auto& which = op.event == RowEvent::Deleted ? beside.back : beside.taken;
        which.insert(QString::fromUtf8(op.key), op.before);
        return {};
    }
    const RowReverter::End end = reverter.Revert(op);
    if (end != RowReverter::End::Done)
        return WhyNotReverted(end, op, name, m_context.store.Manager().File().Error());
    Note(op, outcome);
    if (TableOf(op) == HistoryTable::Time) NoteRemoved(op, beside);
    return {};
}

/// A restore deletes every record and adds those of the backup: one that is in both has only changed.
void CUndo::NoteRemoved(const RowOp& op, Beside& beside) {
    const QString key = QString::fromUtf8(op.key);
    if (op.event == RowEvent::Added) beside.removed.insert(key);
    if (op.event == RowEvent::Deleted) beside.removed.remove(key);
}

/// The store could not be written after all: what was taken back in the settings is made again.
void CUndo::MakeGood(const Beside& beside, Way way) {
    const auto changes = Changes();
    if (!changes) return;
    const auto row = std::ranges::find(*changes, *beside.carried, &HistoryRow::number);
    if (row != changes->end()) static_cast<void>(TakeEntries(*row, CHistory::Opposite(way), Mode::Real));
}

// --- Timers

/// A timer that would come back to a record which has one by now is a reason to refuse all. A record that
/// only changes keeps its timer, as when it is edited.
QString CUndo::PlanTimers(const QString& name, const QStringList& times, Beside& beside) {
    const QHash<QString, QByteArray> present = m_context.timers.Images(times);
    for (auto back = beside.back.cbegin(); back != beside.back.cend(); ++back) {
        if (present.contains(back.key())) return FormatText<Text::HistoryTimed>(name, back.key());
        m_context.history.NoteTimerBack(back.key(), back.value());
    }
    QSet<QString> going = beside.removed;
    for (auto taken = beside.taken.cbegin(); taken != beside.taken.cend(); ++taken) going.insert(taken.key());
    for (const QString& id : std::as_const(going)) {
        if (present.contains(id)) beside.dropped.append(id);
        const QByteArray image = present.value(id, beside.taken.value(id));
        if (!image.isEmpty()) m_context.history.NoteTimer(id, image);
    }
    return {};
}

/// The records are durable by now, as they are before their timers go in any other change.
void CUndo::MoveTimers(const Beside& beside, UndoOutcome& outcome) {
    for (const QString& id : beside.dropped)
        if (!m_context.timers.Drop({id}))
            outcome.notice = FormatText<Text::HistoryTimerGone>(id, m_context.settings.Tree().Error());
    for (auto back = beside.back.cbegin(); back != beside.back.cend(); ++back)
        if (!m_context.timers.PutBack(back.key(), back.value()))
            outcome.notice =
                FormatText<Text::HistoryTimerNotBack>(back.key(), m_context.settings.Tree().Error());
}
