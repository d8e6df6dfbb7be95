#include "shell/CFrameCommands.h"

#include "app/CVelmarchApp.h"
#include "entry/QuickEntry.h"
#include "entry/RecordMarks.h"
#include "lang/LoadText.h"
#include "platform/CPrompt.h"
#include "shell/CAboutDialog.h"
#include "shell/CFrameDoor.h"
#include "shell/CRecordListView.h"
#include "shell/core/CRecordListModel.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerSelection.h"

#include <QInputDialog>
#include <algorithm>

namespace {

void ResetWorkingRecords() {
    for (CTRecord* record : {theTimeEntry, theClockEntry, theSpanEntry})
        if (record) record->Reset();
}

}  // namespace

CFrameCommands::CFrameCommands(Around around)
    : m_around(std::move(around)),
      m_period(m_around.document),
      m_records({m_around.document, m_around.timers, m_around.settings, m_around.prompt, m_around.progress}) {
}

CFrameCommands::Handler CFrameCommands::HandlerOf(::Run run) {
    struct Row {
        ::Run run;
        Handler handler;
    };
    static constexpr Row kHandlers[] = {
        {::Run::QuickEntry, &CFrameCommands::QuickEntry},
        {::Run::EditRecord, &CFrameCommands::EditSelected},
        {::Run::CopyRecords, &CFrameCommands::CopySelected},
        {::Run::DeleteRecords, &CFrameCommands::DeleteSelected},
        {::Run::Mark, &CFrameCommands::MarkSelected},
        {::Run::SelectAll, &CFrameCommands::SelectAll},
        {::Run::SelectNone, &CFrameCommands::SelectNone},
        {::Run::Sort, &CFrameCommands::Sort},
        {::Run::Layout, &CFrameCommands::Layout},
        {::Run::ToggleBar1, &CFrameCommands::ToggleBar1},
        {::Run::ToggleBar2, &CFrameCommands::ToggleBar2},
        {::Run::ToggleStatusBar, &CFrameCommands::ToggleStatusBar},
        {::Run::Refresh, &CFrameCommands::Refresh},
        {::Run::PeriodPreset, &CFrameCommands::PeriodPreset},
        {::Run::PeriodAll, &CFrameCommands::PeriodAll},
        {::Run::PeriodDay, &CFrameCommands::PeriodDay},
        {::Run::PeriodPrevious, &CFrameCommands::PeriodPrevious},
        {::Run::PeriodNext, &CFrameCommands::PeriodNext},
        {::Run::ClearFilter, &CFrameCommands::ClearFilter},
        {::Run::FilterTimers, &CFrameCommands::FilterTimers},
        {::Run::TimerAction, &CFrameCommands::ApplyTimers},
        {::Run::StopAllTimers, &CFrameCommands::StopTimers},
        {::Run::PauseAllTimers, &CFrameCommands::PauseTimers},
        {::Run::Options, &CFrameCommands::Options},
        {::Run::About, &CFrameCommands::About},
        {::Run::Exit, &CFrameCommands::Exit},
    };
    const auto* row = std::find_if(std::begin(kHandlers), std::end(kHandlers),
                                   [run](const Row& candidate) { return candidate.run == run; });
    return row == std::end(kHandlers) ? nullptr : row->handler;
}

bool CFrameCommands::HasHandler(::Run run) {
    return HandlerOf(run) != nullptr;
}

void CFrameCommands::Run(const CommandRow& row) {
    if (const Handler handler = HandlerOf(row.run)) (this->*handler)(row.argument);
}

void CFrameCommands::QuickEntry(int flags) {
    const auto edit = [this](CVORec& record) { return m_around.edit(static_cast<CTRecord&>(record)); };
    const QuickOutcome outcome = NewTimeRecord(flags, {m_around.document, m_around.timers, m_around.settings,
                                                       m_around.clock, m_around.view.SelectedIds(), edit});
    if (!outcome.addedId.isEmpty()) m_around.view.SelectIds({outcome.addedId});
}

void CFrameCommands::EditSelected(int) {
    const QStringList ids = m_around.view.SelectedIds();
    if (ids.size() >= 2)
        return m_around.prompt.Tell({.textId = static_cast<int>(Text::SelectOneRecord),
                                     .title = LoadText(Text::EditTitle),
                                     .text = LoadText(Text::SelectOneRecord),
                                     .actionLabel = {}});
    if (!ids.isEmpty()) EditRecord(ids.front());
}

void CFrameCommands::EditRecord(const QString& id) {
    const CTRecord* record = m_around.document.FindTime(id);
    if (!record || !theTimeEntry) return;
    theTimeEntry->Reset();
    theTimeEntry->Copy(*record);
    if (m_around.edit(*theTimeEntry) &&
        !m_around.document.ModifyRecord(*theTimeEntry, id, true, false, true, true))
        m_around.door.Refresh();  // memory and store may differ now; the failure has been told
}

void CFrameCommands::CopySelected(int) {
    m_records.Copy(m_around.view.SelectedIds());
}

void CFrameCommands::DeleteSelected(int) {
    m_records.Delete(m_around.view.SelectedIds(), true);
}

void CFrameCommands::MarkSelected(int code) {
    m_records.SetMark(static_cast<RecordMark>(code), m_around.view.SelectedIds(), true);
}

void CFrameCommands::SelectAll(int) {
    m_around.view.selectAll();
}

void CFrameCommands::SelectNone(int) {
    m_around.view.SelectNone();
}

/// Picking a column acts like a click on its header.
void CFrameCommands::Sort(int) {
    QStringList captions;
    int present = 0;
    for (const int column : m_around.model.VisibleColumns()) {
        if (column == m_around.model.SortColumn()) present = static_cast<int>(captions.size());
        captions.append(m_around.model.CaptionOf(column));
    }
    bool picked = false;
    const QString caption = QInputDialog::getItem(&m_around.door.Window(), LoadText(Text::SortTitle),
                                                  LoadText(Text::SortBy), captions, present, false, &picked);
    if (!picked) return;
    m_around.model.SortByHeader(static_cast<int>(captions.indexOf(caption)) + 1);
    m_around.view.ApplyLayout();
}

void CFrameCommands::Layout(int layout) {
    m_around.view.CaptureWidths();
    m_around.settings.listLayout = layout;
    m_around.document.NotifyViews(Hint::Rebuild);
}

void CFrameCommands::ToggleBar1(int) {
    m_around.door.ToggleBar1();
}

void CFrameCommands::ToggleBar2(int) {
    m_around.door.ToggleBar2();
}

void CFrameCommands::ToggleStatusBar(int) {
    m_around.door.ToggleStatusBar();
}

void CFrameCommands::Refresh(int) {
    m_around.door.Refresh();
}

void CFrameCommands::PeriodDay(int) {
    m_around.door.PickDay();
}

void CFrameCommands::ApplyTimers(int action) {
    ApplyToSelection(m_around.view.SelectedIds(), static_cast<TimerAction>(action), m_around.timers);
}

void CFrameCommands::StopTimers(int) {
    m_around.timers.FoldAndStore();
    m_around.timers.StopAllTimers();
}

void CFrameCommands::PauseTimers(int) {
    m_around.timers.FoldAndStore();
    m_around.timers.PauseAllTimers();
}

void CFrameCommands::Options(int) {
    if (!m_around.options()) return;
    m_around.door.KeepLayout();
    ResetWorkingRecords();
    m_around.door.Refresh();
}

void CFrameCommands::About(int) {
    CAboutDialog(m_around.home, &m_around.door.Window()).exec();
}

void CFrameCommands::Exit(int) {
    m_around.door.Leave();
}
