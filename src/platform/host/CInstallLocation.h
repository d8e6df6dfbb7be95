#pragma once

#include <QString>

/// What the installer wrote down, or why it can't be read.
struct InstalledPlace {
    bool known = false;
    QString directory;  ///< may be empty although known
    QString reason;     ///< "RegOpenKeyEx" or "RegQueryValueEx", two line feeds, the system's message
};

/// Reads the value "InstallLocation" that the installer records for this user:
/// $XDG_CONFIG_HOME/velmarch/DvVelSetup (INI form, default ~/.config), key "InstallLocation".
[[nodiscard]] InstalledPlace ReadInstallLocation();

/// Full path of the running program, empty when it can't be had.
[[nodiscard]] QString ModulePath();

/// The folder of a path: all before the last separator; empty when none stands after the first character.
[[nodiscard]] QString FolderOf(const QString& path);
