#include "config/CCfgBool.h"

#include "platform/settings/CProfile.h"

bool CCfgBool::Save(CProfile& profile, const QString& section, const QString& entry) const {
    return profile.WriteInt(section, entry, *m_setting ? 1 : 0);
}

void CCfgBool::Load(const ProfileSection& stored, const QString& entry) {
    const auto found = stored.constFind(entry);
    const auto* number = found == stored.constEnd() ? nullptr : std::get_if<std::int32_t>(&*found);
    const bool isFlag = number && (*number == 0 || *number == 1);
    *m_setting = isFlag ? *number == 1 : m_preset;
}
