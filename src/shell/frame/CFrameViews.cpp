#include "shell/frame/CFrameViews.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "shell/program/CAboutDialog.h"
#include "shell/commands/CActions.h"
#include "shell/commands/CButtonChooser.h"
#include "shell/options/CColumnsDialog.h"
#include "shell/frame/CFrameDoor.h"
#include "shell/commands/CPalette.h"
#include "shell/controls/CPickDialog.h"
#include "shell/list/CRecordListView.h"
#include "shell/frame/FrameAround.h"
#include "shell/options/ListFontDialog.h"
#include "shell/options/SettingSwitch.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/tree/CTreeDoor.h"

namespace {

void ResetWorkingRecords() {
    for (CTRecord* record : {theTimeEntry, theClockEntry, theSpanEntry})
        if (record) record->Reset();
    if (theExpenseEntry) theExpenseEntry->Reset();
}

ColumnHalf HalfInUse() {
    return HalfOf(KindOf(theRecordMode));
}

const FieldLabels& LabelsOf(const FrameAround& around) {
    static const FieldLabels kDefaults;
    return around.catalogue ? around.catalogue->Labels() : kDefaults;
}

}  // namespace

void CFrameViews::SelectAll() {
    m_around.view.selectAll();
}

void CFrameViews::SelectNone() {
    m_around.view.SelectNone();
}

/// Picking a column acts like a click on its header.
void CFrameViews::Sort() {
    CPickDialog::Choice choice{.title = LoadText(Text::SortTitle),
                               .rows = {},
                               .present = 0,
                               .hasSearch = false,
                               .accept = Text::SortTitle};
    for (const int column : m_around.model.VisibleColumns()) {
        if (column == m_around.model.SortColumn()) choice.present = static_cast<int>(choice.rows.size());
        choice.rows.append(m_around.model.CaptionOf(column));
    }
    const std::optional<int> picked =
        RunPickDialog(&m_around.door.Window(), choice, m_around.settings.Profile());
    if (!picked) return;
    m_around.model.SortByHeader(*picked + 1);
    m_around.view.ApplyLayout();
}

void CFrameViews::Layout(int layout) {
    m_around.settings.listLayout = layout;
    m_around.door.RebuildList();
}

void CFrameViews::RebuildViews() {
    m_around.document.NotifyViews(Hint::Rebuild);
}

/// The widths on screen come first, or the columns chosen would take those of the last start.
void CFrameViews::ListColumns() {
    m_around.view.CaptureWidths();
    if (RunColumnsDialog(&m_around.door.Window(), CColumnsDialog::Of::List, HalfInUse(), m_around.settings,
                         m_around.prompt))
        m_around.document.NotifyViews(Hint::Rebuild);
}

void CFrameViews::TreeColumns() {
    if (RunColumnsDialog(&m_around.door.Window(), CColumnsDialog::Of::Tree, HalfInUse(), m_around.settings,
                         m_around.prompt))
        m_around.document.NotifyViews(Hint::Rebuild);
}

void CFrameViews::ListFont() {
    const std::optional<FontRecord> font = AskListFont(&m_around.door.Window(), m_around.view.font());
    if (!font) return;
    m_around.settings.SetListFont(*font);
    PersistLayout();
    m_around.document.NotifyViews(Hint::Rebuild);
}

void CFrameViews::ToggleTree() {
    m_around.tree->Show(!m_around.tree->IsShown());
}

void CFrameViews::CustomizeBar(Bar bar) {
    CProfile& profile = m_around.settings.Profile();
    const std::optional<QList<int>> buttons =
        RunButtonChooser(&m_around.door.Window(), bar, m_around.actions->Buttons(bar),
                         {theRecordMode == RecordMode::Time, LabelsOf(m_around)}, profile);
    if (!buttons) return;
    m_around.actions->SetButtons(bar, *buttons);
    if (!KeepButtons(profile, bar, *buttons)) TellNotSaved(m_around.prompt);
}

void CFrameViews::FindCommand() {
    const std::optional<int> command =
        RunPalette(&m_around.door.Window(), PaletteEntries(m_around.state(), LabelsOf(m_around)),
                   m_around.settings.Profile());
    if (command) m_around.runCommand(*command);
}

void CFrameViews::Options() {
    if (!m_around.options()) return;
    PersistLayout();
    ResetWorkingRecords();
    m_around.door.Refresh();
}

void CFrameViews::About() {
    CAboutDialog(m_around.home, &m_around.door.Window()).exec();
}

void CFrameViews::PersistLayout() {
    m_around.view.CaptureWidths();
    if (!m_around.settings.SaveAll()) TellNotSaved(m_around.prompt);
}
