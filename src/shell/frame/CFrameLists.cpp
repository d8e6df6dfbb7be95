#include "shell/frame/CFrameLists.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/ChangesOf.h"
#include "shell/frame/FrameContext.h"
#include "timers/CRecordTimers.h"

namespace {

/// What is stored takes the new text of an item over, too.
CRecordChanges::Context WithCarrier(CRecordChanges::Context changes, CItemCarrier& carrier) {
    changes.carrier = &carrier;
    return changes;
}

}  // namespace

CFrameLists::CFrameLists(const FrameContext& context)
    : m_context(context),
      m_timers(context.timers),
      m_stored(context.settings, context.clock, context.prompt),
      m_changes(WithCarrier(ChangesOf(context, m_timers, CRecordChanges::Partial::Undone), m_stored)) {}

bool CFrameLists::EditLists() {
    if (m_context.catalogue.IsStale() && !m_context.catalogue.Load()) {
        m_context.prompt.Tell({.textId = static_cast<int>(Text::ItemListsNotShown),
                               .title = LoadText(Text::ReadWriteTitle),
                               .text = LoadText(Text::ItemListsNotShown),
                               .icon = BoxIcon::Warning,
                               .actionLabel = {}});
        return false;
    }
    m_context.dialogs.EditLists(m_context.control.Window(), m_changes);
    m_context.document.NotifyViews(Hint::Rebuild);
    return true;
}
