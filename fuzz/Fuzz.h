#pragma once

#include <QByteArray>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What a fuzz target is called with: bytes of any kind. Always 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// A property that holds for every input; where it doesn't, the program ends, and the fuzzer keeps the input.
inline void Demand(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

/// Takes an input apart from its front.
class CInput {
 public:
    CInput(const std::uint8_t* data, std::size_t size)
        : m_bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)) {}

    /// The next byte, 0 at the end.
    [[nodiscard]] std::uint8_t Byte() {
        return m_at < m_bytes.size() ? static_cast<std::uint8_t>(m_bytes[m_at++]) : 0;
    }
    [[nodiscard]] bool AtEnd() const { return m_at >= m_bytes.size(); }
    /// All that is left, never null.
    [[nodiscard]] QByteArray Rest() const { return m_bytes.isEmpty() ? QByteArray("") : m_bytes.mid(m_at); }

 private:
    QByteArray m_bytes;
    qsizetype m_at = 0;
};
