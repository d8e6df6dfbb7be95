#include "shell/frame/CFrameLabels.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "config/NameColumns.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/FrameContext.h"

/// Lists that could not be read at the start may have become readable; if not, the user is told once more, as
/// names that aren't known can't be edited.
void CFrameLabels::EditNames() {
    CPulldownCatalogue& catalogue = m_context.catalogue;
    if (!catalogue.Labels().IsFilled() && !catalogue.Load()) return;
    if (!m_context.dialogs.EditLabels(m_context.control.Window())) return;
    static_cast<void>(NameColumns(m_context.settings));  // false only before the lists were loaded
    m_context.document.NotifyViews(Hint::Rebuild);
}
