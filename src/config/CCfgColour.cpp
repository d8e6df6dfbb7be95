#include "config/CCfgColour.h"

#include "platform/settings/CProfile.h"

#include <QtEndian>

bool CCfgColour::Save(CProfile& profile, const QString& section, const QString& entry) const {
    QByteArray bytes(4, '\0');
    qToLittleEndian(*m_setting, bytes.data());
    return profile.WriteBinary(section, entry, bytes);
}

void CCfgColour::Load(const ProfileSection& stored, const QString& entry) {
    const auto found = stored.constFind(entry);
    const auto* bytes = found == stored.constEnd() ? nullptr : std::get_if<QByteArray>(&*found);
    const bool isColour = bytes && bytes->size() == 4;
    *m_setting = isColour ? qFromLittleEndian<std::uint32_t>(bytes->constData()) : m_preset;
}
