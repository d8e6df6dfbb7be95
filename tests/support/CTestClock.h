#pragma once

#include "platform/host/CClock.h"

/// A clock that stands still until a test moves it. At its making UTC is the local time.
class CTestClock final : public CClock {
 public:
    explicit CTestClock(int year = 2026, int month = 11, int day = 19, int hour = 9, int minute = 0,
                        int second = 0);
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return m_now; }
    [[nodiscard]] ClockStamp GetStamp() const override { return m_stamp; }
    /// Time passes until then. A moment before the present one: the clock is set back, and no time passes.
    void Set(int year, int month, int day, int hour, int minute, int second = 0);
    /// Moves on (or back), date included.
    void Advance(int seconds);
    /// Another local time at the same moment: a flight, or a night of the clock change.
    void ShiftZone(int seconds);
    /// Somebody sets the clock, UTC included, to a later or an earlier time; no time passes.
    void SetClock(int seconds);
    /// The machine is off for so long, and then started anew; its clock has gone on meanwhile.
    void Reboot(int secondsOff);
    /// A clock without true time: what an older program left.
    void ForgetTrueTime() { m_stamp = {}; }

 private:
    void MoveTo(const SYSTEMTIME& time);

    SYSTEMTIME m_now;
    ClockStamp m_stamp;
    int m_boots = 1;
};
