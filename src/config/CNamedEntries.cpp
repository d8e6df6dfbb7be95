#include "config/CNamedEntries.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"

const QString& CNamedEntries::ReservedName() {
    return LoadText(Text::LastUsedName);
}

bool CNamedEntries::IsReserved(const QString& name) {
    return name.compare(ReservedName(), Qt::CaseInsensitive) == 0;
}

QStringList CNamedEntries::Names() const {
    QStringList names;
    (void)m_settings.EnumKeys(m_key, names);  // no key: none stored yet
    return names;
}

QStringList CNamedEntries::Alike(const QString& name) const {
    QStringList alike;
    for (const QString& stored : Names())
        if (stored.compare(name, Qt::CaseInsensitive) == 0) alike.append(stored);
    return alike;
}

std::optional<QString> CNamedEntries::Find(const QString& name) const {
    const QStringList alike = Alike(name);
    if (alike.isEmpty()) return std::nullopt;
    return alike.contains(name) ? name : alike.first();
}

bool CNamedEntries::Delete(const QString& name) {
    return ChangeEntry(DeleteRequest(name), m_settings);
}

EntryRequest CNamedEntries::DeleteRequest(const QString& name) const {
    return {.key = m_key, .entry = {}, .former = name};
}
