#include "shell/frame/CFrameDependencies.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "lang/LoadText.h"
#include "lists/CDependencyEditor.h"
#include "platform/host/CPrompt.h"
#include "records/StoreTransaction.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/FrameContext.h"

namespace {

void Warn(CPrompt& prompt, Text id, const QString& text) {
    prompt.Tell({.textId = static_cast<int>(id),
                 .title = LoadText(Text::ListsTitle),
                 .text = text,
                 .icon = BoxIcon::Warning,
                 .actionLabel = {}});
}

}  // namespace

void CFrameDependencies::Edit() {
    const DependencySet set = DependencySetOf(KindOf(theRecordMode));
    if (!AreReadable(set)) return;
    CDependencyEditor editor(m_context.catalogue, theRecordMode);
    const bool isAccepted = m_context.dialogs.EditDependencies(m_context.control.Window(), editor, m_changes);
    if (!isAccepted || !editor.IsChanged() || Store(editor, set)) return;
    Warn(m_context.prompt, Text::DependenciesNotUpdated,
         LoadText(Text::DependenciesNotUpdated) + u' ' + LoadText(Text::DependenciesAsStored));
    // What can be chosen is again what is stored.
    static_cast<void>(m_context.catalogue.LoadTree(set));
}

/// What another program has written since the last load belongs to it. Damage that the user would not give up
/// is asked about once more: what is edited could not be stored beside it.
bool CFrameDependencies::AreReadable(DependencySet set) {
    CPulldownCatalogue& catalogue = m_context.catalogue;
    const bool isRead =
        catalogue.IsStale() ? catalogue.Load() : !catalogue.IsDamaged(set) || catalogue.LoadTree(set);
    if (!isRead) Warn(m_context.prompt, Text::DepListsNotRead, LoadText(Text::DepListsNotRead));
    return isRead && !catalogue.IsDamaged(set);
}

/// Over what another program has stored meanwhile: its changes stay, and these come to them.
bool CFrameDependencies::Store(CDependencyEditor& editor, DependencySet set) {
    const StoreTransaction hold(m_context.document.Store());
    if (!hold.IsOpen() || !editor.TakeUp()) return false;
    editor.Accept();
    return m_context.catalogue.SaveTree(set);
}
