#pragma once

#include "platform/host/CClock.h"

/// A clock that stands still until a test moves it.
class CTestClock final : public CClock {
 public:
    explicit CTestClock(int year = 2026, int month = 11, int day = 19, int hour = 9, int minute = 0,
                        int second = 0);
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return m_now; }
    void Set(int year, int month, int day, int hour, int minute, int second = 0);
    /// Moves on (or back), date included.
    void Advance(int seconds);

 private:
    SYSTEMTIME m_now;
};
