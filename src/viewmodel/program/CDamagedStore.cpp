#include "viewmodel/program/CDamagedStore.h"

#include "app/CVelmarchApp.h"
#include "app/HomeFiles.h"
#include "app/HomeSalvage.h"
#include "exchange/backup/BackupTexts.h"
#include "exchange/backup/LastBackup.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/CPrompt.h"
#include "platform/host/Quarantine.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Where the last good backup is, which may be the better way back.
QString BackupNote(const CProfile& profile) {
    const auto last = ReadLastBackup(profile);
    return last ? FormatText<Text::NewestBackupNote>(BackupDateText(last->time), last->path) : QString();
}

}  // namespace

bool CDamagedStore::Ask(Text question, const QString& words, Text action) {
    MessageBox box;
    box.textId = static_cast<int>(question);
    box.title = LoadText(Text::StoreProblemTitle);
    box.text = words;
    box.icon = BoxIcon::Warning;
    box.buttons = Buttons::YesNo;
    box.defaultAnswer = Answer::No;
    box.actionLabel = LoadText(action);
    return m_context.prompt.Ask(box) == Answer::Yes;
}

void CDamagedStore::Tell(Text what, const QString& words) {
    m_context.prompt.Tell({static_cast<int>(what),
                           LoadText(Text::StoreProblemTitle),
                           words,
                           BoxIcon::Warning,
                           Buttons::Ok,
                           Answer::Ok,
                           {}});
}

/// Beside the home, with the time in its name.
QString CDamagedStore::NewFolder() const {
    const SYSTEMTIME now = m_context.clock.GetLocalTime();
    return m_context.app.Home() + QString::asprintf("-saved-%04d%02d%02d-%02d%02d%02d", now.wYear, now.wMonth,
                                                    now.wDay, now.wHour, now.wMinute, now.wSecond);
}

bool CDamagedStore::Resolve(bool isOpen) {
    if (!m_context.app.IsStoreFoundDamaged()) return isOpen;
    const QString store = StorePath(m_context.app.Home());
    if (Ask(Text::AskSalvage,
            FormatText<Text::AskSalvage>(store, NewFolder()) + BackupNote(m_context.app.Profile()),
            Text::AskSalvageYes))
        return Salvage();
    if (Ask(Text::AskPutStoreAside, LoadText(Text::AskPutStoreAside), Text::AskPutStoreAsideYes))
        return PutAside() && StartWithNone();
    if (isOpen) Tell(Text::DamagedStoreStays, LoadText(Text::DamagedStoreStays));
    return isOpen;
}

bool CDamagedStore::Salvage() {
    m_context.app.CloseStore();
    const SalvagedHome saved = SalvageHome(m_context.app.Home(), NewFolder());
    if (!saved.error.isEmpty()) {
        Tell(Text::SalvageFailed, FormatText<Text::SalvageFailed>(saved.error));
        return false;
    }
    const QString report = SalvageLines(saved).join(u'\n');
    if (!Ask(Text::AskUseSalvaged, FormatText<Text::AskUseSalvaged>(report), Text::AskUseSalvagedYes))
        return false;
    return PutAside() && ReplaceBy(saved.folder) && m_context.app.OpenStore();
}

bool CDamagedStore::PutAside() {
    m_context.app.CloseStore();
    const QString store = StorePath(m_context.app.Home());
    if (!PutInQuarantine(store).isEmpty()) return true;
    Tell(Text::StorePutAsideFailed, FormatText<Text::StorePutAsideFailed>(store));
    return false;
}

/// The user has agreed to it: the missing store isn't asked about once more.
bool CDamagedStore::StartWithNone() {
    return NoteStoreKnown(m_context.app.Profile(), false) && m_context.app.OpenStore();
}

/// The new folder stays as it is: a second copy does no harm.
bool CDamagedStore::ReplaceBy(const QString& folder) {
    const QString store = StorePath(m_context.app.Home());
    if (QFile::copy(StorePath(folder), store)) return true;
    Tell(Text::SalvageFailed, FormatText<Text::SalvageFailed>(store));
    return false;
}
