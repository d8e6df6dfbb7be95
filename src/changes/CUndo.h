#pragma once

#include "changes/CHistory.h"
#include "changes/HistorySteps.h"
#include "records/RowReverter.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class CCfgStore;
class CRecordStore;
class CTimersOfRecords;

/// What undoing or redoing a change came to.
struct [[nodiscard]] UndoOutcome {
    enum class End {
        Done,
        Nothing,  ///< there was nothing to undo or redo
        Refused   ///< nothing was changed
    };
    End end = End::Refused;
    QString words = {};    ///< which change it was; why it was refused
    QString name = {};     ///< of the change, also of one that was refused
    QString instead = {};  ///< of a refused one: the change that can be taken in its place; may be empty
    QStringList passedOver = {};  ///< the changes that can't be taken, and were passed over
    QString notice = {};          ///< what the user has to be told of what was done
    QStringList times = {};       ///< the time records that are other ones now, added, changed or gone
    QStringList expenses = {};    ///< the same of expenses
    bool hasLists = false;        ///< pick lists, dependencies or names of fields changed

    explicit operator bool() const { return end == End::Done; }
};

/// Takes the last change back, or makes it again: all of it in one transaction, or nothing where a row isn't
/// as the change left it. Timers that went with the change come back as they were; those of records that go
/// go with them.
class CUndo {
 public:
    struct Context {
        CRecordStore& store;
        CHistory& history;
        CTimersOfRecords& timers;
        CCfgStore& settings;
    };
    explicit CUndo(const Context& context) : m_context(context) {}

    [[nodiscard]] UndoOutcome Run(CHistory::Way way);
    /// Where the next change can't be taken, the next one after it that can and that concerns nothing of what
    /// was passed over. Those stay where they are in the history.
    [[nodiscard]] UndoOutcome RunPast(CHistory::Way way);
    /// The changes that can be undone or done again, the newest first; nothing when they can't be read.
    [[nodiscard]] std::optional<std::vector<HistoryRow>> Changes();
    /// Why they can't.
    [[nodiscard]] const QString& Error() const { return m_context.history.Error(); }
    /// What the next change of those is called; empty when there is none.
    [[nodiscard]] static QString NextName(const std::vector<HistoryRow>& changes, CHistory::Way way);

 private:
    enum class Mode { Real, Trial /** is it possible? */ };
    /// What goes beside the rows of the store.
    struct Beside {
        QHash<QString, QByteArray> back;      ///< timers that went with the change, and come back with it
        QHash<QString, QByteArray> taken;     ///< those that came back with it, as they were then
        QSet<QString> removed;                ///< records that go
        QStringList dropped;                  ///< timers that go
        std::optional<std::int64_t> carried;  ///< the number of the change of the settings, once it is taken
    };
    [[nodiscard]] UndoOutcome Attempt(CHistory::Way way, std::size_t place, Mode mode);
    [[nodiscard]] UndoOutcome AttemptWithin(CHistory::Way way, std::size_t place, Mode mode, Beside& beside);
    [[nodiscard]] bool ConcernsAnyOf(const std::vector<HistoryStep>& steps, std::size_t place);
    void CollectKeys(const HistoryRow& change, QSet<QByteArray>& keys);
    [[nodiscard]] UndoOutcome TakeStep(const HistoryStep& step, CHistory::Way way, Mode mode, Beside& beside);
    [[nodiscard]] UndoOutcome TakeEntries(const HistoryRow& change, CHistory::Way way, Mode mode);
    [[nodiscard]] QString RevertEntries(const HistoryRow& change);
    [[nodiscard]] QString RevertRows(const HistoryRow& change, UndoOutcome& outcome, Beside& beside);
    [[nodiscard]] QString RevertOp(const RowOp& op, const QString& name, RowReverter& reverter,
                                   UndoOutcome& outcome, Beside& beside);
    static void NoteRemoved(const RowOp& op, Beside& beside);
    [[nodiscard]] std::optional<std::vector<RowOp>> OpsOf(const HistoryRow& change);
    [[nodiscard]] QString PlanTimers(const QString& name, const QStringList& times, Beside& beside);
    void MoveTimers(const Beside& beside, UndoOutcome& outcome);
    void MakeGood(const Beside& beside, CHistory::Way way);
    [[nodiscard]] QString NameInstead(CHistory::Way way);

    Context m_context;
};
