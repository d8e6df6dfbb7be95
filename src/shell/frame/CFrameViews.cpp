#include "shell/frame/CFrameViews.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchApp.h"
#include "exchange/backup/LastBackup.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "shell/commands/CActions.h"
#include "shell/commands/CButtonChooser.h"
#include "shell/commands/CPalette.h"
#include "shell/frame/CAboutDialog.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CRecordListView.h"
#include "shell/options/CColumnsDialog.h"
#include "shell/options/ListFontDialog.h"
#include "shell/options/SettingSwitch.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/program/RegionalSettings.h"
#include "viewmodel/tree/CTreeControl.h"

namespace {

void ResetWorkingRecords() {
    for (CTRecord* record : {theTimeEntry, theClockEntry, theSpanEntry})
        if (record) record->Reset();
    if (theExpenseEntry) theExpenseEntry->Reset();
}

ColumnHalf HalfInUse() {
    return HalfOf(KindOf(theRecordMode));
}

}  // namespace

void CFrameViews::SelectAll() {
    m_context.view.selectAll();
}

void CFrameViews::SelectNone() {
    m_context.view.SelectNone();
}

void CFrameViews::Layout(int layout) {
    m_context.settings.listLayout = layout;
    m_context.control.RebuildList();
}

void CFrameViews::GroupList(int groups) {
    m_context.settings.listGroups = groups;
    m_context.control.RebuildList();
}

void CFrameViews::FoldGroups() {
    m_context.view.FoldAll(!m_context.view.AreAllFolded());
}

void CFrameViews::RebuildViews() {
    m_context.document.NotifyViews(Hint::Rebuild);
}

void CFrameViews::TreeColumns() {
    if (RunColumnsDialog(&m_context.control.Window(), CColumnsDialog::Of::Tree, HalfInUse(),
                         m_context.settings, m_context.prompt))
        m_context.document.NotifyViews(Hint::Rebuild);
}

void CFrameViews::ListFont() {
    const std::optional<FontRecord> font = AskListFont(&m_context.control.Window(), m_context.view.font());
    if (!font) return;
    m_context.settings.SetListFont(*font);
    PersistLayout();
    m_context.document.NotifyViews(Hint::Rebuild);
}

void CFrameViews::ToggleTree() {
    m_context.tree.Show(!m_context.tree.IsShown());
}

void CFrameViews::CustomizeBar(Bar bar) {
    CProfile& profile = m_context.settings.Profile();
    const std::optional<QList<int>> buttons =
        RunButtonChooser(&m_context.control.Window(), bar, m_context.actions.Bars().Buttons(bar),
                         {theRecordMode == RecordMode::Time, m_context.catalogue.Labels()}, profile);
    if (!buttons) return;
    m_context.actions.Bars().SetButtons(bar, *buttons);
    if (!PersistButtons(profile, bar, *buttons)) TellNotSaved(m_context.prompt);
}

void CFrameViews::FindCommand() {
    const std::optional<int> command = RunPalette(
        &m_context.control.Window(), PaletteEntries(m_context.control.State(), m_context.catalogue.Labels()),
        m_context.settings.Profile());
    if (command) m_context.control.RunCommand(*command);
}

void CFrameViews::Options() {
    if (m_context.dialogs.EditSettings(m_context.control.Window())) TakeUpSettings();
}

void CFrameViews::TakeUpSettings() {
    PersistLayout();
    ResetWorkingRecords();
    m_context.control.Refresh();
}

void CFrameViews::RegionalSettings() {
    if (OpenRegionalSettings(m_context.launcher)) return;
    m_context.prompt.Tell({.textId = static_cast<int>(Text::RegionalNotStarted),
                           .title = LoadText(Text::RegionalTitle),
                           .text = LoadText(Text::RegionalNotStarted),
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}

void CFrameViews::About() {
    const auto last = ReadLastBackup(m_context.settings.Profile());
    CAboutDialog(m_context.home, LastBackupText(last), &m_context.control.Window()).exec();
}

void CFrameViews::PersistLayout() {
    m_context.view.CaptureWidths();
    if (!m_context.settings.SaveAll()) TellNotSaved(m_context.prompt);
}
