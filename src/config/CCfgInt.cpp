#include "config/CCfgInt.h"

#include "platform/settings/CProfile.h"

bool CCfgInt::Save(CProfile& profile, const QString& section, const QString& entry) const {
    return profile.WriteInt(section, entry, *m_setting);
}

void CCfgInt::Load(const ProfileSection& stored, const QString& entry) {
    const auto found = stored.constFind(entry);
    const auto* number = found == stored.constEnd() ? nullptr : std::get_if<std::int32_t>(&*found);
    *m_setting = number ? *number : m_preset;
}
