#include "shell/frame/CFrameRecords.h"

#include "app/CVelmarchApp.h"
#include "entry/QuickEntry.h"
#include "entry/RecordMarks.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "shell/frame/CFrameDoor.h"
#include "shell/list/CRecordListView.h"
#include "shell/frame/FrameAround.h"
#include "viewmodel/tree/CTreeDoor.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerSelection.h"

#include <type_traits>

namespace {

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

CFrameRecords::CFrameRecords(const FrameAround& around)
    : m_around(around),
      m_commands({around.document, around.timers, around.settings, around.prompt, around.progress}) {}

void CFrameRecords::QuickEntry(int flags) {
    QuickEntrySurroundings around{.document = m_around.document,
                                  .timers = m_around.timers,
                                  .settings = m_around.settings,
                                  .clock = m_around.clock,
                                  .selectedIds = m_around.view.SelectedIds(),
                                  .edit = m_around.editRecord,
                                  .fillFromDefaults = m_around.fillFromDefaults};
    if (m_around.tree)
        around.fillFromTree = [tree = m_around.tree](CVORec& record) { return tree->FillRecord(record); };
    const QuickOutcome outcome = NewRecordOf(KindOf(theRecordMode), flags, around);
    if (!outcome.addedId.isEmpty()) m_around.view.SelectIds({outcome.addedId});
}

void CFrameRecords::EditSelected() {
    const QStringList ids = m_around.view.SelectedIds();
    if (ids.size() >= 2)
        return m_around.prompt.Tell({.textId = static_cast<int>(Text::SelectOneRecord),
                                     .title = LoadText(Text::EditTitle),
                                     .text = LoadText(Text::SelectOneRecord),
                                     .actionLabel = {}});
    if (!ids.isEmpty()) Edit(ids.front());
}

void CFrameRecords::Edit(const QString& id) {
    const CVORec* record = m_around.document.FindRecord(id);
    CVORec* working = record ? WorkingCopyOf(*record) : nullptr;
    if (!working || !m_around.editRecord) return;
    while (m_around.editRecord(*working)) {
        if (m_around.document.ModifyRecord(*working, id, true, false, true, true)) return;
        // Memory and store may differ now. The failure has been told; what was entered comes back to the
        // dialog.
        m_around.door.Refresh();
    }
}

void CFrameRecords::CopySelected() {
    m_commands.Copy(m_around.view.SelectedIds());
}

void CFrameRecords::DeleteSelected() {
    m_commands.Delete(m_around.view.SelectedIds(), true);
}

void CFrameRecords::MarkSelected(int mark) {
    m_commands.SetMark(static_cast<RecordMark>(mark), m_around.view.SelectedIds(), true);
}

void CFrameRecords::ApplyTimers(int action) {
    ApplyToSelection(m_around.view.SelectedIds(), static_cast<TimerAction>(action), m_around.timers);
    // What can't be stored was told; the views show again what is.
    if (m_around.document.Store().m_lastError != 0) m_around.door.Refresh();
}

void CFrameRecords::StopTimers() {
    m_around.timers.FoldAndStore();
    m_around.timers.StopAllTimers();
}

void CFrameRecords::PauseTimers() {
    m_around.timers.FoldAndStore();
    m_around.timers.PauseAllTimers();
}
