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

}  // namespace

CFrameHistory::CFrameHistory(const FrameContext& context)
    : m_context(context),
      m_timers(context.timers),
      m_history(context.home, context.clock, context.settings),
      m_undo({.store = context.document.Store(),
              .history = m_history,
              .timers = m_timers,
              .settings = context.settings}) {
    context.document.Store().Manager().SetJournal(&m_history);
    m_history.Entries().Watch();
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
    m_undoName = changes ? CUndo::NextName(*changes, CHistory::Way::Undo) : QString();
    m_redoName = changes ? CUndo::NextName(*changes, CHistory::Way::Redo) : QString();
}

void CFrameHistory::Describe(CommandState& state) const {
    if (!m_context.document.IsBeingChanged()) LookUp();
    state.undo = m_undoName;
    state.redo = m_redoName;
}

void CFrameHistory::Go(CHistory::Way way) {
    const UndoOutcome outcome = m_undo.Run(way);
    if (outcome) return Done(outcome, way);
    if (!outcome.words.isEmpty()) Refuse(outcome, way);  // else the store has told it
}

void CFrameHistory::Done(const UndoOutcome& outcome, CHistory::Way way) {
    Show(outcome);
    m_context.control.Say(way == CHistory::Way::Undo ? FormatText<Text::HistoryUndone>(outcome.words)
                                                     : FormatText<Text::HistoryRedone>(outcome.words));
    if (!outcome.notice.isEmpty()) Tell(outcome.notice);
}

void CFrameHistory::Tell(const QString& words) {
    m_context.prompt.Tell({.textId = static_cast<int>(Text::HistoryTitle),
                           .title = LoadText(Text::StoreFailureTitle),
                           .text = LoadText(Text::HistoryTitle) + QStringLiteral(": ") + words,
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}

/// A change that can't be taken doesn't bar those before it that have nothing to do with it.
void CFrameHistory::Refuse(const UndoOutcome& outcome, CHistory::Way way) {
    if (outcome.instead.isEmpty()) return Tell(outcome.words);
    const bool isUndo = way == CHistory::Way::Undo;
    const QString words = isUndo ? FormatText<Text::HistorySkipUndo>(outcome.words, outcome.instead)
                                 : FormatText<Text::HistorySkipRedo>(outcome.words, outcome.instead);
    const Answer answer = m_context.prompt.Ask(
        {.textId = static_cast<int>(isUndo ? Text::HistorySkipUndo : Text::HistorySkipRedo),
         .title = LoadText(Text::HistorySkipTitle),
         .text = words,
         .icon = BoxIcon::Warning,
         .buttons = Buttons::YesNo,
         .defaultAnswer = Answer::No,
         .actionLabel = LoadText(isUndo ? Text::ActionSkipUndo : Text::ActionSkipRedo)});
    if (answer != Answer::Yes) return;
    const UndoOutcome past = m_undo.RunPast(way);
    if (past) return Done(past, way);
    if (!past.words.isEmpty()) Tell(past.words);
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
