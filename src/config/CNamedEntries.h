#pragma once

#include "config/EntryCommand.h"

#include <QString>
#include <QStringList>
#include <optional>

class CCfgStore;

/// Entries of the settings that the user makes under names, below one key.
class CNamedEntries {
 public:
    CNamedEntries(CCfgStore& settings, const QString& key) : m_settings(settings), m_key(key) {}

    /// The name under which the program keeps what was used last. It alone writes there.
    [[nodiscard]] static const QString& ReservedName();
    /// In any case of letters.
    [[nodiscard]] static bool IsReserved(const QString& name);

    /// In the order of their making, the reserved one among them.
    [[nodiscard]] QStringList Names() const;
    /// Those that equal a name, ignoring case.
    [[nodiscard]] QStringList Alike(const QString& name) const;
    /// The stored name that was meant: this one or, where there is none, one that equals it ignoring case.
    [[nodiscard]] std::optional<QString> Find(const QString& name) const;
    [[nodiscard]] bool Delete(const QString& name);
    /// The same as a change of the settings, for a program that may have to ask a window for it.
    [[nodiscard]] EntryRequest DeleteRequest(const QString& name) const;

 protected:
    [[nodiscard]] CCfgStore& Settings() const { return m_settings; }
    [[nodiscard]] const QString& Key() const { return m_key; }

 private:
    CCfgStore& m_settings;
    QString m_key;
};
