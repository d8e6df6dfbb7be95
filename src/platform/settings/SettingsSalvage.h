#pragma once

#include <QByteArrayView>
#include <QStringList>

class CSettingsTree;

/// What could be saved of a damaged settings file.
struct SalvagedSettings {
    int saved = 0;
    int lost = 0;           ///< values that are known to be gone, or that don't fit their checksum
    QStringList lostNames;  ///< of those whose key is known, "ActiveTimers/Content"
};

/// Reads every value that can be read from the bytes of a settings file, however damaged, and writes it into
/// another one, new and open. False when that can't be written: its file says why.
[[nodiscard]] bool SalvageSettings(QByteArrayView bytes, CSettingsTree& target, SalvagedSettings& out);
