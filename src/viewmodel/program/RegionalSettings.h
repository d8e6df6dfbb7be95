#pragma once

class CLauncher;

/// Whether the desktop has a program in which the user sets the region: how dates, times and numbers are
/// written.
[[nodiscard]] bool HasRegionalSettings(const CLauncher& launcher);
/// Starts it, the first one that is there. False when there is none or it can't be started.
[[nodiscard]] bool OpenRegionalSettings(CLauncher& launcher);
