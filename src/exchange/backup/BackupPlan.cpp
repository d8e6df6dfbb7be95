#include "exchange/backup/BackupPlan.h"

#include "app/CVelmarchDoc.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/DatedBackups.h"
#include "exchange/backup/LastBackup.h"
#include "exchange/backup/WriteBackup.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/CPrompt.h"
#include "platform/settings/CProfile.h"

#include <QDate>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kSection = u"Backup"_s;
const QString kEveryDays = u"EveryDays"_s;
const QString kFolder = u"Folder"_s;
const QString kKeep = u"Keep"_s;
const QString kLastDay = u"LastAutomatic"_s;  ///< a day number

int DayNumber(const SYSTEMTIME& time) {
    return static_cast<int>(QDate(time.wYear, time.wMonth, time.wDay).toJulianDay());
}

}  // namespace

BackupPlan ReadBackupPlan(const CProfile& profile) {
    BackupPlan plan;
    const int days = profile.GetInt(kSection, kEveryDays, plan.everyDays);
    if (days == 1 || days == 7) plan.everyDays = days;
    plan.folder = profile.GetText(kSection, kFolder).value_or(QString());
    plan.keep = std::clamp(profile.GetInt(kSection, kKeep, plan.keep), 1, kMostKeptBackups);
    return plan;
}

bool NoteBackupPlan(CProfile& profile, const BackupPlan& plan) {
    return profile.Change([&] {
        return profile.WriteInt(kSection, kEveryDays, plan.everyDays) &&
               profile.WriteText(kSection, kFolder, plan.folder) &&
               profile.WriteInt(kSection, kKeep, plan.keep);
    });
}

bool CAutomaticBackups::IsDue(const BackupPlan& plan) const {
    if (plan.everyDays == 0 || plan.folder.isEmpty()) return false;
    const int today = DayNumber(m_context.clock.GetLocalTime());
    if (m_failed && DayNumber(*m_failed) == today) return false;
    const int last = m_context.profile.GetInt(kSection, kLastDay, 0);
    return today - last >= plan.everyDays || last > today;
}

void CAutomaticBackups::RunIfDue() {
    const BackupPlan plan = ReadBackupPlan(m_context.profile);
    if (m_context.document.IsBeingChanged() || !IsDue(plan)) return;
    QString error;
    {
        const CVelmarchDoc::ChangeScope reading(m_context.document);
        error = Make(plan);
    }
    if (error.isEmpty()) return;
    m_failed = m_context.clock.GetLocalTime();
    m_context.prompt.Tell({.textId = static_cast<int>(Text::AutomaticBackupFailed),
                           .title = LoadText(Text::BackupPlanTitle),
                           .text = FormatText<Text::AutomaticBackupFailed>(error),
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}

/// Where there are no records there is nothing to keep, and nothing is wrong. What failed; empty when it is
/// done.
QString CAutomaticBackups::Make(const BackupPlan& plan) {
    const SYSTEMTIME now = m_context.clock.GetLocalTime();
    CSecondSource source(m_context.home, m_context.prompt);
    if (!source.Open()) return source.Manager().m_error;
    if (QString damage = source.FindDamage(); !damage.isEmpty()) return damage;
    const QString path = NewDatedBackup(
        plan.folder, FormatText<Text::AutomaticBackupName>(now.wYear, now.wMonth, now.wDay, now.wHour,
                                                           now.wMinute, now.wSecond));
    const BackupOutcome outcome =
        WriteBackup({source, m_context.clock, m_context.progress}, path, EmptyBackup::Refused);
    if (outcome.isEmpty) return {};
    if (!outcome) return outcome.error;
    KeepNewestBackups(plan.folder, u"velmarch-auto-"_s, plan.keep, path);
    // Where it can't be noted the next one is made sooner.
    static_cast<void>(m_context.profile.WriteInt(kSection, kLastDay, DayNumber(now)));
    static_cast<void>(NoteLastBackup(m_context.profile, {outcome.content.time, path}));
    return {};
}
