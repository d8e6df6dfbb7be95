#include "shell/frame/CFrameGuide.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "entry/CEnteredItems.h"
#include "lang/LoadText.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/ChangesOf.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CRecordListView.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/guide/CGuide.h"

CFrameGuide::CFrameGuide(const FrameContext& context)
    : m_context(context),
      m_timers(context.timers),
      m_changes(ChangesOf(context, m_timers, CRecordChanges::Partial::Kept)) {}

bool CFrameGuide::Run() {
    // What was entered elsewhere and never stored doesn't go with the first record.
    m_context.dialogs.Entered().Clear();
    CGuide guide({.document = m_context.document,
                  .timers = m_context.timers,
                  .settings = m_context.settings,
                  .catalogue = m_context.catalogue,
                  .changes = m_changes,
                  .clock = m_context.clock,
                  .habits = ReadRegionalHabits(CUserLocale())});
    const bool isDone = m_context.dialogs.RunGuide(m_context.control.Window(), guide);
    m_startedId = guide.StartedId();
    if (guide.IsStored()) m_context.control.Say(LoadText(Text::GuideStored));
    return isDone;
}

void CFrameGuide::ShowStarted() {
    if (m_startedId.isEmpty()) return;
    if (theRecordMode != RecordMode::Time) m_context.control.SwitchMode(RecordMode::Time);
    m_context.view.SelectIds({m_startedId});
}
