#pragma once

#include "platform/settings/SettingsSalvage.h"
#include "records/StoreSalvage.h"

#include <QString>
#include <QStringList>

/// What could be saved of a damaged home.
struct SalvagedHome {
    enum class Settings { None, Copied, Partly };

    QString error;   ///< what failed; empty when the new home is there
    QString folder;  ///< the new home
    SalvagedRecords records;
    Settings settings = Settings::None;
    SalvagedSettings values;  ///< of settings that could be saved in part only
    bool hasHistory = false;  ///< which stays behind: its changes are those of the damaged records
    QStringList
        notSaved;  ///< damaged values of the settings by name, and whole files of them that were put aside
};

/// Writes everything that can be read of the records and settings of a home into a new one: a folder that
/// doesn't exist yet or is empty. The old home isn't touched. This program must have no transaction open on
/// its files.
[[nodiscard]] SalvagedHome SalvageHome(const QString& home, const QString& folder);

/// What came of it, line by line, for the user.
[[nodiscard]] QStringList SalvageLines(const SalvagedHome& saved);

/// A lost day as other programs read it, "2026-11-19"; empty for records without a day.
[[nodiscard]] QString DayText(const StoredDay& day);
