#include "platform/host/CClock.h"

#include "platform/host/SystemTime.h"

#include <QFile>
#include <ctime>

namespace {

std::int64_t Milliseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

/// The kernel makes a new one at each start of the machine; empty where it can't be read.
const QByteArray& BootIdentity() {
    static const QByteArray kIdentity = [] {
        QFile file(QStringLiteral("/proc/sys/kernel/random/boot_id"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
    }();
    return kIdentity;
}

}  // namespace

ClockStamp CSystemClock::GetStamp() const {
    timespec sinceBoot{};
    if (::clock_gettime(CLOCK_BOOTTIME, &sinceBoot) != 0) return {};
    return {.utc = Milliseconds(SystemTime()), .sinceBoot = Milliseconds(sinceBoot), .boot = BootIdentity()};
}

SYSTEMTIME CSystemClock::GetLocalTime() const {
    const timespec now = SystemTime();
    std::tm parts{};
    ::localtime_r(&now.tv_sec, &parts);
    const auto word = [](long value) { return static_cast<std::uint16_t>(value); };
    SYSTEMTIME time;
    time.wYear = word(parts.tm_year + 1900L);
    time.wMonth = word(parts.tm_mon + 1L);
    time.wDayOfWeek = word(parts.tm_wday);
    time.wDay = word(parts.tm_mday);
    time.wHour = word(parts.tm_hour);
    time.wMinute = word(parts.tm_min);
    time.wSecond = word(parts.tm_sec > 59 ? 59L : parts.tm_sec);  // a leap second repeats the last one
    time.wMilliseconds = word(now.tv_nsec / 1000000L);
    return time;
}
