#include "shell/frame/CFrameHistory.h"

#include "app/CVelmarchDoc.h"
#include "changes/ChangeNames.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/FrameContext.h"
#include "timers/CRecordTimers.h"

namespace {

/// More records than these are read together with all others.
constexpr qsizetype kMostShown = 20 * CVelmarchDoc::kMostRefreshed;

QString NameOf(const HistoryRow* change) {
    return change ? ChangeName(change->kind, change->count) : QString();
}

}  // namespace

CFrameHistory::CFrameHistory(const FrameContext& context)
    : m_context(context),
      m_timers(context.timers),
      m_history(context.home, context.clock),
      m_undo({.store = context.document.Store(), .history = m_history, .timers = m_timers}) {
    context.document.Store().Manager().SetJournal(&m_history);
}

CFrameHistory::~CFrameHistory() {
    m_context.document.Store().Manager().SetJournal(nullptr);
}

/// Menus and buttons ask often, and other programs change things, too.
void CFrameHistory::LookUp() const {
    const std::int64_t edition = m_history.Edition();
    if (edition == m_edition) return;
    m_edition = edition;
    const auto changes = m_undo.Changes();
    m_undoName = changes ? NameOf(CHistory::Next(*changes, CHistory::Way::Undo)) : QString();
    m_redoName = changes ? NameOf(CHistory::Next(*changes, CHistory::Way::Redo)) : QString();
}

void CFrameHistory::Describe(CommandState& state) const {
    if (!m_context.document.IsBeingChanged()) LookUp();
    state.undo = m_undoName;
    state.redo = m_redoName;
}

void CFrameHistory::Go(CHistory::Way way) {
    const UndoOutcome outcome = m_undo.Run(way);
    if (outcome) {
        Show(outcome);
        return m_context.control.Say(way == CHistory::Way::Undo
                                         ? FormatText<Text::HistoryUndone>(outcome.words)
                                         : FormatText<Text::HistoryRedone>(outcome.words));
    }
    if (outcome.words.isEmpty()) return;  // the store has told it
    m_context.prompt.Tell({.textId = static_cast<int>(Text::HistoryTitle),
                           .title = LoadText(Text::StoreFailureTitle),
                           .text = LoadText(Text::HistoryTitle) + QStringLiteral(": ") + outcome.words,
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}

void CFrameHistory::Show(const UndoOutcome& outcome) {
    if (outcome.hasLists) m_context.control.ReadLists();
    const bool areShown =
        ShowRecords(RecordKind::Time, outcome.times) && ShowRecords(RecordKind::Expense, outcome.expenses);
    if (!areShown) m_context.control.Refresh();
}

bool CFrameHistory::ShowRecords(RecordKind kind, const QStringList& ids) {
    if (ids.size() > kMostShown) return false;
    for (qsizetype at = 0; at < ids.size(); at += CVelmarchDoc::kMostRefreshed)
        if (!m_context.document.RefreshRecords(kind, ids.mid(at, CVelmarchDoc::kMostRefreshed))) return false;
    return true;
}
