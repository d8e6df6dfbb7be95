#pragma once

#include "platform/host/ClockStamp.h"
#include "platform/host/SYSTEMTIME.h"

/// The clock, handed to all code that needs the time, so that a test can move it.
class CClock {
 public:
    virtual ~CClock() = default;
    /// The present local time.
    [[nodiscard]] virtual SYSTEMTIME GetLocalTime() const = 0;
    /// The present reading of true time; an unknown one from a clock that has none.
    [[nodiscard]] virtual ClockStamp GetStamp() const { return {}; }
};

/// The clock of the machine.
class CSystemClock final : public CClock {
 public:
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override;
    [[nodiscard]] ClockStamp GetStamp() const override;
};
