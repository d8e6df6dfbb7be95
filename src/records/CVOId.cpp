#include "records/CVOId.h"

#include "platform/host/SystemTime.h"

#include <QString>
#include <algorithm>
#include <array>
#include <cstdint>
#include <mutex>

#include <pthread.h>
#include <sys/random.h>

namespace {

constexpr int kDigits = 32;
/// Times end below this one, so that the fixed identities of the dependency rows, which begin with
/// FFFF26110BDC, are never made.
constexpr std::uint64_t kLastMillisecond = 0xFFFEFFFFFFFFU;

std::uint64_t MillisecondsNow() {
    const timespec now = SystemTime();
    return static_cast<std::uint64_t>(now.tv_sec) * 1000U +
           static_cast<std::uint64_t>(now.tv_nsec) / 1000000U;
}

/// The first 64 bits: 48 of time and a count of 16, which begins anew in each millisecond. When the clock
/// stands still or goes back, the last time goes on counting.
std::uint64_t NextStamp() {
    static std::uint64_t last = 0;
    const std::uint64_t now = std::min(MillisecondsNow(), kLastMillisecond) << 16U;
    last = std::max(now, last + 1);
    return last;
}

/// Random bits, drawn from the system in blocks: one by one they cost a third of storing a record. A process
/// that forks draws anew on both sides, so two processes never share a sequence.
class RandomBits {
 public:
    RandomBits() {
        pthread_atfork(nullptr, nullptr, [] { theLeft = 0; });
    }
    std::uint64_t Next() {
        if (theLeft == 0) theLeft = Draw();
        return m_drawn[--theLeft];
    }

 private:
    /// Up to 256 bytes come whole and without fail.
    std::size_t Draw() {
        while (::getrandom(m_drawn.data(), sizeof m_drawn, 0) != static_cast<ssize_t>(sizeof m_drawn)) {
        }
        return m_drawn.size();
    }

    static inline std::size_t theLeft = 0;
    std::array<std::uint64_t, 32> m_drawn{};
};

}  // namespace

void CVOId::GenUnique() {
    static std::mutex guard;
    static RandomBits random;
    const std::lock_guard lock(guard);
    const std::uint64_t halves[] = {NextStamp(), random.Next()};
    QString digits(kDigits, Qt::Uninitialized);
    QChar* digit = digits.data();
    for (int i = 0; i < kDigits; ++i) {
        const std::uint64_t nibble = halves[i / 16] >> (60 - i % 16 * 4) & 0xFU;
        digit[i] = QLatin1Char("0123456789ABCDEF"[nibble]);
    }
    m_id = digits;
}

bool IsIdentity(const QString& text) {
    return text.size() == kDigits && std::all_of(text.begin(), text.end(), [](QChar c) {
               return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F');
           });
}
