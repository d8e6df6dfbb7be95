#pragma once

#include <ctime>

/// The machine's own reading of the time, the only one: for the clock that everybody is handed, and for
/// identities, which have to ascend with the real time whatever clock a test hands out.
[[nodiscard]] timespec SystemTime();
