#include "app/HomeFiles.h"

#include "lang/LoadText.h"
#include "platform/settings/CProfile.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kSection = u"Store"_s;
const QString kKnown = u"Known"_s;
const QString kDamaged = u"Damaged"_s;
const QString kTimerSection = u"ActiveTimers"_s;
const QString kTimers = u"Content"_s;
const QString kLost = u"Lost"_s;

}  // namespace

QString StorePath(const QString& home) {
    return home + u'/' + LoadText(Text::StoreFileName);
}

QString SettingsPath(const QString& home) {
    return home + u"/velmarch.settings"_s;
}

QString HistoryPath(const QString& home) {
    return home + u"/velmarch.history"_s;
}

QString DataSourceName() {
    return u"velmarch"_s;
}

bool IsStoreKnown(const CProfile& profile) {
    return profile.GetInt(kSection, kKnown, 0) == 1;
}

bool NoteStoreKnown(CProfile& profile, bool isKnown) {
    return IsStoreKnown(profile) == isKnown || profile.WriteInt(kSection, kKnown, isKnown ? 1 : 0);
}

bool IsStoreDamaged(const CProfile& profile) {
    return profile.GetInt(kSection, kDamaged, 0) == 1;
}

bool NoteStoreDamaged(CProfile& profile, bool isDamaged) {
    return IsStoreDamaged(profile) == isDamaged || profile.WriteInt(kSection, kDamaged, isDamaged ? 1 : 0);
}

bool AreTimersLost(const CProfile& profile) {
    return profile.GetInt(kTimerSection, kLost, 0) == 1;
}

bool NoteTimersLost(CProfile& profile, bool areLost) {
    return AreTimersLost(profile) == areLost || profile.WriteInt(kTimerSection, kLost, areLost ? 1 : 0);
}

bool HasTimers(const QStringList& damagedValues) {
    return damagedValues.contains(kTimerSection + u'/' + kTimers);
}
