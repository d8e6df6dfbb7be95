#pragma once

#include "platform/host/SYSTEMTIME.h"

/// The clock, handed to all code that needs the time, so that a test can move it.
class CClock {
 public:
    virtual ~CClock() = default;
    /// The present local time.
    [[nodiscard]] virtual SYSTEMTIME GetLocalTime() const = 0;
};

/// The clock of the machine.
class CSystemClock final : public CClock {
 public:
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override;
};
