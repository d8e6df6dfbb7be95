#pragma once

#include <QString>

/// The platform's message for an error number (errno), in English; empty when it has none.
[[nodiscard]] QString ErrorText(int code);
