#pragma once

#include "changes/CHistory.h"
#include "records/RowReverter.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

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
    QString words;          ///< which change it was; why it was refused
    QStringList times;      ///< the time records that are other ones now, added, changed or gone
    QStringList expenses;   ///< the same of expenses
    bool hasLists = false;  ///< pick lists, dependencies or names of fields changed

    explicit operator bool() const { return end == End::Done; }
};

/// Takes the last change back, or makes it again: all of it in one transaction, or nothing where a row isn't
/// as the change left it, or where a record has a timer, which knows nothing of the change.
class CUndo {
 public:
    struct Context {
        CRecordStore& store;
        CHistory& history;
        CTimersOfRecords& timers;
    };
    explicit CUndo(const Context& context) : m_context(context) {}

    [[nodiscard]] UndoOutcome Run(CHistory::Way way);
    /// The changes that can be undone or done again, the newest first; nothing when they can't be read.
    [[nodiscard]] std::optional<std::vector<HistoryRow>> Changes();
    /// Why they can't.
    [[nodiscard]] const QString& Error() const { return m_context.history.Error(); }

 private:
    [[nodiscard]] UndoOutcome RunWithin(CHistory::Way way);
    [[nodiscard]] UndoOutcome RevertAll(const HistoryRow& change);
    [[nodiscard]] QString RevertPart(const QByteArray& part, const HistoryRow& change, RowReverter& reverter,
                                     UndoOutcome& outcome);
    [[nodiscard]] QString WhyNotReverted(RowReverter::End end, const RowOp& op, const QString& name);
    [[nodiscard]] QString TimedRecord(const QStringList& times);

    Context m_context;
};
