#include "records/CVOId.h"

#include <QRandomGenerator>
#include <algorithm>
#include <cstdint>
#include <ctime>
#include <mutex>

namespace {

constexpr int kDigits = 32;
/// Times end below this one, so that the fixed identities of the dependency rows, which begin with
/// FFFF26110BDC, are never made.
constexpr std::uint64_t kLastMillisecond = 0xFFFEFFFFFFFFU;

std::uint64_t MillisecondsNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000U +
           static_cast<std::uint64_t>(now.tv_nsec) / 1000000U;
}

/// The first 64 bits: 48 of time and a count of 16, which begins anew in each millisecond. When the clock
/// stands still or goes back, the last time goes on counting.
std::uint64_t NextStamp() {
    static std::mutex guard;
    static std::uint64_t last = 0;
    const std::lock_guard lock(guard);
    const std::uint64_t now = std::min(MillisecondsNow(), kLastMillisecond) << 16U;
    last = std::max(now, last + 1);
    return last;
}

}  // namespace

void CVOId::GenUnique() {
    // The random half is drawn each time, so two processes never share a sequence, not even after a fork.
    const std::uint64_t halves[] = {NextStamp(), QRandomGenerator::system()->generate64()};
    QString digits(kDigits, Qt::Uninitialized);
    for (int i = 0; i < kDigits; ++i) {
        const std::uint64_t nibble = halves[i / 16] >> (60 - i % 16 * 4) & 0xFU;
        digits[i] = QLatin1Char("0123456789ABCDEF"[nibble]);
    }
    m_id = digits;
}

bool IsIdentity(const QString& text) {
    return text.size() == kDigits && std::all_of(text.begin(), text.end(), [](QChar c) {
               return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
           });
}
