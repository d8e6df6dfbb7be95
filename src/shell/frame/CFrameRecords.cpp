#include "shell/frame/CFrameRecords.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchApp.h"
#include "entry/NamedDefaults.h"
#include "entry/QuickEntry.h"
#include "entry/RecordMarks.h"
#include "fields/Column.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/ChangesOf.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CRecordListView.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerSelection.h"
#include "timers/TrueTimeQuestion.h"
#include "viewmodel/tree/CTreeControl.h"
#include "viewmodel/work/CRecentWork.h"

#include <memory>
#include <type_traits>

namespace {

/// Undo makes the question needless, but so many may be more than can be undone.
constexpr qsizetype kMostUnasked = 1000;

/// The record that the dialogs of a kind edit, filled from another; null when there is none.
CVORec* WorkingCopyOf(const CVORec& record) {
    const auto fill = [&record](auto* working) -> CVORec* {
        if (!working) return nullptr;
        using Record = std::remove_pointer_t<decltype(working)>;
        working->Reset();
        working->Copy(static_cast<const Record&>(record));
        return working;
    };
    return record.Kind() == RecordKind::Time ? fill(theTimeEntry) : fill(theExpenseEntry);
}

}  // namespace

CFrameRecords::CFrameRecords(const FrameContext& context, CRecentWork& recent)
    : m_context(context),
      m_recent(recent),
      m_timers(context.timers),
      m_changes(ChangesOf(context, m_timers, CRecordChanges::Partial::Kept)),
      m_save({.document = context.document,
              .changes = m_changes,
              .prompt = context.prompt,
              .labels = context.catalogue.Labels()}) {}

/// What would be entered could not be stored.
bool CFrameRecords::MayAdd() {
    if (!m_context.document.Store().IsDamaged()) return true;
    m_context.prompt.Tell({.textId = static_cast<int>(Text::DamagedStoreStays),
                           .title = LoadText(Text::StoreProblemTitle),
                           .text = LoadText(Text::DamagedStoreStays),
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
    return false;
}

QuickEntryContext CFrameRecords::EntryContext(const Fill& fillFromDefaults) {
    return {.document = m_context.document,
            .timers = m_context.timers,
            .settings = m_context.settings,
            .clock = m_context.clock,
            .add = [this](const CVORec& record) { return bool(m_changes.Add(record, Identity::Own)); },
            .selectedIds = m_context.view.SelectedIds(),
            // One that can't be stored comes back to the dialog, which asks before it throws away what was
            // entered.
            .edit =
                [this, untouched = std::shared_ptr<CVORec>()](CVORec& record) mutable {
                    if (!untouched) untouched = record.Clone();
                    return EditInDialog(record, untouched.get());
                },
            .fillFromDefaults = fillFromDefaults,
            .fillFromTree = [this](CVORec& record) { return FillFromTree(record); }};
}

/// A time record takes over the terms of the client's last one, as far as the selection says nothing else.
bool CFrameRecords::FillFromTree(CVORec& record) {
    if (!m_context.tree.FillRecord(record)) return false;
    if (record.Kind() != RecordKind::Time) return true;
    auto& time = static_cast<CTRecord&>(record);
    WorkTerms terms = m_recent.TermsFor(WorkOf(time));
    if (m_context.tree.Says(Column::kBillable)) terms.isBillable = false;
    PutTerms(terms, time);
    return true;
}

void CFrameRecords::QuickEntry(int flags) {
    NewRecord(flags, [this](CVORec& record) {
        return m_context.dialogs.ChooseDefault(m_context.control.Window(), record);
    });
}

QStringList CFrameRecords::DefaultNames() const {
    QStringList names = NamedDefaults(m_context.settings, m_context.clock, theRecordMode).Names();
    names.removeLast();
    return names;
}

void CFrameRecords::NewFromDefault(const QString& name) {
    NewRecord(QuickFlag::kDefaults, [this, name](CVORec& record) { return FillFromDefault(name, record); });
}

bool CFrameRecords::FillFromDefault(const QString& name, CVORec& record) const {
    if (NamedDefaults(m_context.settings, m_context.clock, theRecordMode).Read(name, record)) return true;
    const Text title =
        theRecordMode == RecordMode::Time ? Text::DefaultsTitleTime : Text::DefaultsTitleExpenses;
    m_context.prompt.Tell({.textId = static_cast<int>(Text::DefaultDamaged),
                           .title = LoadText(title),
                           .text = FormatText<Text::DefaultDamaged>(name),
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
    return false;
}

void CFrameRecords::NewRecord(int flags, const Fill& fillFromDefaults) {
    if (!MayAdd()) return;
    static_cast<void>(Finish(NewRecordOf(KindOf(theRecordMode), flags, EntryContext(fillFromDefaults))));
}

/// True when a record was added.
bool CFrameRecords::Finish(const QuickOutcome& outcome) {
    if (!outcome.addedId.isEmpty()) m_context.view.SelectIds({outcome.addedId});
    if (outcome.lacksTimer) TellWithoutTimer(m_context.prompt);
    return !outcome.addedId.isEmpty();
}

bool CFrameRecords::StartWork(const std::function<bool(CVORec& record)>& fill) {
    if (!MayAdd()) return false;
    QuickEntryContext context = EntryContext({});
    context.edit = nullptr;
    context.fillGiven = fill;
    return Finish(NewTimeRecord(QuickFlag::kGiven | QuickFlag::kTimestamp | QuickFlag::kTimer, context));
}

void CFrameRecords::EditSelected() {
    const QStringList ids = m_context.view.SelectedIds();
    if (ids.size() >= 2)
        return m_context.prompt.Tell({.textId = static_cast<int>(Text::SelectOneRecord),
                                      .title = LoadText(Text::EditTitle),
                                      .text = LoadText(Text::SelectOneRecord),
                                      .actionLabel = {}});
    if (!ids.isEmpty()) Edit(ids.front());
}

void CFrameRecords::Edit(const QString& id) {
    const CVORec* record = m_context.document.FindRecord(id);
    CVORec* working = record ? WorkingCopyOf(*record) : nullptr;
    if (!working) return;
    DialogRecord edited{.began = record->Clone(), .untouched = record->Clone(), .entered = *working};
    while (EditInDialog(*working, edited.untouched.get())) {
        const CRecordSave::End end = Save(edited);
        if (end == CRecordSave::End::Stored) return;
        // Memory and store may differ after a failure. What was entered comes back to the dialog.
        if (end == CRecordSave::End::Failed) m_context.control.Refresh();
    }
}

/// A timer that was stopped in the dialog ends with the record that has its count. That this can't be noted
/// beside it is no reason not to store the record: the timer then waits, paused, until somebody looks.
CRecordSave::End CFrameRecords::Save(DialogRecord& edited) {
    CRecordTimers& timers = m_context.timers;
    const QString id = edited.began->GetId();
    if (edited.entered.Kind() == RecordKind::Time)
        static_cast<void>(timers.NoteStopInDialog(static_cast<const CTRecord&>(edited.entered)));
    const CRecordSave::End end = m_save.Save(edited);
    if (end == CRecordSave::End::Stored) timers.EndStopInDialog(id);
    return end;
}

bool CFrameRecords::EditInDialog(CVORec& record, CVORec* untouched) const {
    return m_context.dialogs.EditRecord(m_context.control.Window(), record, untouched);
}

void CFrameRecords::EditDefaults() {
    CVORec* working =
        theRecordMode == RecordMode::Time ? static_cast<CVORec*>(theTimeEntry) : theExpenseEntry;
    if (working) m_context.dialogs.EditDefaults(m_context.control.Window(), *working);
}

// What failed was told, and the views show what came of it: the outcome says nothing more to the window.

void CFrameRecords::CopySelected() {
    static_cast<void>(m_changes.Copy(KindOf(theRecordMode), m_context.view.SelectedIds()));
}

void CFrameRecords::DeleteSelected() {
    const QStringList ids = m_context.view.SelectedIds();
    const Ask ask = ids.size() > kMostUnasked ? Ask::Always : Ask::BySetting;
    static_cast<void>(m_changes.Delete(KindOf(theRecordMode), ids, ask));
}

void CFrameRecords::MarkSelected(int mark) {
    static_cast<void>(m_changes.SetMark(KindOf(theRecordMode), static_cast<RecordMark>(mark),
                                        m_context.view.SelectedIds(), Ask::BySetting));
}

void CFrameRecords::ApplyTimers(int action) {
    if (static_cast<TimerAction>(action) == TimerAction::Stop) return StopSelected();
    TimerOutcome outcome;
    {
        const CVelmarchDoc::ChangeScope changing(m_context.document);
        outcome = ApplyToSelection(m_context.view.SelectedIds(), static_cast<TimerAction>(action),
                                   m_context.timers);
    }
    TellIfUnsaved(outcome);
}

/// Everything is asked before anything is stopped. Left in ids: what is to be stopped by the clock.
TimerOutcome CFrameRecords::StopByTrueTime(QStringList& ids) {
    m_context.timers.FoldAndStore();
    const StopChoice choice = AskCountsBy(ids, m_context.timers.Set(), m_context.prompt);
    ids = choice.byClock;
    const CVelmarchDoc::ChangeScope changing(m_context.document);
    TimerOutcome outcome;
    for (const QString& id : choice.byTrueTime)
        if (const TimerOutcome stopped = m_context.timers.StopRecordTimer(id, CountBy::TrueTime); outcome)
            outcome = stopped;
    return outcome;
}

void CFrameRecords::StopSelected() {
    QStringList ids = m_context.view.SelectedIds();
    TimerOutcome outcome = StopByTrueTime(ids);
    {
        const CVelmarchDoc::ChangeScope changing(m_context.document);
        const TimerOutcome byClock = ApplyToSelection(ids, TimerAction::Stop, m_context.timers);
        if (outcome) outcome = byClock;
    }
    TellIfUnsaved(outcome);
}

void CFrameRecords::StopTimers() {
    const ActiveTimerSet& timers = m_context.timers.Set();
    QStringList ids;
    for (int i = timers.Count() - 1; i >= 0; --i) ids.append(timers.IdAt(i));
    const TimerOutcome outcome = StopByTrueTime(ids);
    // One that the user would rather not stop goes on.
    const TimerOutcome byClock = ids.size() == timers.Count()
                                     ? m_context.timers.StopAllTimers()
                                     : ApplyToSelection(ids, TimerAction::Stop, m_context.timers);
    TellIfUnsaved(outcome ? byClock : outcome);
}

void CFrameRecords::PauseTimers() {
    m_context.timers.FoldAndStore();
    TellIfUnsaved(m_context.timers.PauseAllTimers());
}

void CFrameRecords::StartTimer(const QString& id) {
    TellIfUnsaved(m_context.timers.StartRecordTimer(id));
}

void CFrameRecords::PauseTimer(const QString& id) {
    m_context.timers.FoldAndStore();
    TellIfUnsaved(m_context.timers.PauseRecordTimer(id));
}

void CFrameRecords::StopTimer(const QString& id) {
    QStringList byClock{id};
    TimerOutcome outcome = StopByTrueTime(byClock);
    if (!byClock.isEmpty()) outcome = m_context.timers.StopRecordTimer(id);
    TellIfUnsaved(outcome);
}

void CFrameRecords::TellIfUnsaved(const TimerOutcome& outcome) {
    ::TellIfUnsaved(outcome, m_context.timers.SaveError(), m_context.prompt);
}
