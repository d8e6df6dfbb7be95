#include "support/CTestClock.h"

#include <QDateTime>

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

}  // namespace

CTestClock::CTestClock(int year, int month, int day, int hour, int minute, int second) {
    Set(year, month, day, hour, minute, second);
}

void CTestClock::Set(int year, int month, int day, int hour, int minute, int second) {
    const QDateTime time(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
    Q_ASSERT_X(time.isValid(), "CTestClock", "no such date or time");
    m_now = ClockOf(time);
}

void CTestClock::Advance(int seconds) {
    const QDateTime time(QDate(m_now.wYear, m_now.wMonth, m_now.wDay),
                         QTime(m_now.wHour, m_now.wMinute, m_now.wSecond), Qt::UTC);
    m_now = ClockOf(time.addSecs(seconds));
}
