#include "shell/frame/CFrameBackup.h"

#include "config/CCfgStore.h"
#include "exchange/backup/LastBackup.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "shell/exchange/CBackupPlanDialog.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/FrameContext.h"
#include "timers/CRecordTimers.h"
#include "timers/GoneRecords.h"
#include "timers/TimerImage.h"

CFrameBackup::CFrameBackup(const FrameContext& context)
    : m_context(context),
      m_commands({.home = context.home,
                  .document = context.document,
                  .profile = context.settings.Profile(),
                  .prompt = context.prompt,
                  .clock = context.clock,
                  .progress = context.progress,
                  .refresh = [this] { m_context.control.Refresh(); },
                  .dropGone = [this] { return DropGone(); },
                  .timers = [this] { return TimerImagesOf(m_context.timers.Set()); }}) {}

/// Where it can't be saved such timers go with the next fold.
int CFrameBackup::DropGone() {
    const QStringList gone = GoneRecords(m_context.timers.Set(), m_context.document);
    for (const QString& id : gone) static_cast<void>(m_context.timers.Drop(id));
    return static_cast<int>(gone.size());
}

void CFrameBackup::EditPlan() {
    CProfile& profile = m_context.settings.Profile();
    CBackupPlanDialog dialog(ReadBackupPlan(profile), LastBackupText(ReadLastBackup(profile)),
                             m_context.prompt, &m_context.control.Window());
    if (dialog.exec() != QDialog::Accepted || NoteBackupPlan(profile, dialog.GetPlan())) return;
    m_context.prompt.Tell({.textId = static_cast<int>(Text::BackupPlanNotKept),
                           .title = LoadText(Text::BackupPlanTitle),
                           .text = LoadText(Text::BackupPlanNotKept),
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}
