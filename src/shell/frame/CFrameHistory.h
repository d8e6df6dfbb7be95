#pragma once

#include "changes/CTimersOfRecords.h"
#include "changes/CUndo.h"
#include "viewmodel/commands/CommandState.h"

#include <QString>
#include <QStringList>

struct FrameContext;
enum class RecordKind : int;

/// Undo and Redo, and the history of what the window changes: while this lives it is written down.
class CFrameHistory {
 public:
    explicit CFrameHistory(const FrameContext& context);
    ~CFrameHistory();
    CFrameHistory(const CFrameHistory&) = delete;
    CFrameHistory& operator=(const CFrameHistory&) = delete;

    void Undo() { Go(CHistory::Way::Undo); }
    void Redo() { Go(CHistory::Way::Redo); }
    /// What would be undone and done again now.
    void Describe(CommandState& state) const;

 private:
    void Go(CHistory::Way way);
    void Tell(const QString& words);
    void Refuse(const UndoOutcome& outcome, CHistory::Way way);
    void Done(const UndoOutcome& outcome, CHistory::Way way);
    void Show(const UndoOutcome& outcome);
    [[nodiscard]] bool ShowRecords(RecordKind kind, const QStringList& ids);
    void LookUp() const;

    const FrameContext& m_context;
    COwnTimers m_timers;
    mutable CHistory m_history;
    mutable CUndo m_undo;
    mutable std::int64_t m_edition = -1;  ///< of the names
    mutable QString m_undoName, m_redoName;
};
