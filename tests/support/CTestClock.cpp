#include "support/CTestClock.h"

#include <QDateTime>
#include <algorithm>

namespace {

SYSTEMTIME ClockOf(const QDateTime& time) {
    const auto field = [](int value) { return static_cast<std::uint16_t>(value); };
    SYSTEMTIME out;
    out.wYear = field(time.date().year());
    out.wMonth = field(time.date().month());
    out.wDayOfWeek = field(time.date().dayOfWeek() % 7);
    out.wDay = field(time.date().day());
    out.wHour = field(time.time().hour());
    out.wMinute = field(time.time().minute());
    out.wSecond = field(time.time().second());
    return out;
}

QDateTime MomentOf(const SYSTEMTIME& time) {
    return {QDate(time.wYear, time.wMonth, time.wDay), QTime(time.wHour, time.wMinute, time.wSecond),
            Qt::UTC};
}

QByteArray BootName(int number) {
    return "boot " + QByteArray::number(number);
}

}  // namespace

CTestClock::CTestClock(int year, int month, int day, int hour, int minute, int second) {
    Set(year, month, day, hour, minute, second);
    m_stamp = {.utc = MomentOf(m_now).toMSecsSinceEpoch(), .sinceBoot = 3'600'000, .boot = BootName(m_boots)};
}

void CTestClock::Set(int year, int month, int day, int hour, int minute, int second) {
    const QDateTime time(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
    Q_ASSERT_X(time.isValid(), "CTestClock", "no such date or time");
    MoveTo(ClockOf(time));
}

void CTestClock::Advance(int seconds) {
    MoveTo(ClockOf(MomentOf(m_now).addSecs(seconds)));
}

void CTestClock::MoveTo(const SYSTEMTIME& time) {
    const qint64 passed = MomentOf(m_now).msecsTo(MomentOf(time));
    m_now = time;
    if (!m_stamp.IsKnown()) return;
    m_stamp.utc += passed;
    m_stamp.sinceBoot += std::max<qint64>(passed, 0);
}

void CTestClock::ShiftZone(int seconds) {
    m_now = ClockOf(MomentOf(m_now).addSecs(seconds));
}

void CTestClock::SetClock(int seconds) {
    ShiftZone(seconds);
    m_stamp.utc += qint64{seconds} * 1000;
}

void CTestClock::Reboot(int secondsOff) {
    Advance(secondsOff);
    m_stamp.sinceBoot = 0;
    m_stamp.boot = BootName(++m_boots);
}
