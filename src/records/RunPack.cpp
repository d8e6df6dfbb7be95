#include "records/RunPack.h"

namespace {

constexpr qsizetype kLongestRun = 129;
constexpr qsizetype kMostLiterals = 128;
/// Control bytes from here on announce a run.
constexpr int kRunControl = 128;

/// Number of equal bytes from a place on, at most one group's worth.
qsizetype RunAt(QByteArrayView plain, qsizetype at) {
    qsizetype end = at + 1;
    while (end < plain.size() && end - at < kLongestRun && plain[end] == plain[at]) ++end;
    return end - at;
}

/// Number of bytes from a place on before the next run, at most one group's worth.
qsizetype LiteralsAt(QByteArrayView plain, qsizetype at) {
    qsizetype end = at + 1;
    while (end < plain.size() && end - at < kMostLiterals && RunAt(plain, end) == 1) ++end;
    return end - at;
}

}  // namespace

QByteArray RunPack(QByteArrayView plain) {
    QByteArray packed;
    if (plain.size() < 2) return packed;
    for (qsizetype at = 0; at < plain.size();) {
        if (const qsizetype run = RunAt(plain, at); run > 1) {
            packed.append(static_cast<char>(kRunControl + run - 2));
            packed.append(plain[at]);
            at += run;
        } else {
            const qsizetype count = LiteralsAt(plain, at);
            packed.append(static_cast<char>(count - 1));
            packed.append(plain.sliced(at, count));
            at += count;
        }
    }
    return packed;
}

std::optional<QByteArray> RunUnpack(QByteArrayView packed, qsizetype limit) {
    QByteArray plain;
    for (qsizetype at = 0; at < packed.size();) {
        const int control = static_cast<unsigned char>(packed[at++]);
        const bool isRun = control >= kRunControl;
        const qsizetype stored = isRun ? 1 : control + 1;
        const qsizetype unpacked = isRun ? control - kRunControl + 2 : stored;
        if (packed.size() - at < stored || limit - plain.size() < unpacked) return std::nullopt;
        if (isRun)
            plain.append(unpacked, packed[at]);
        else
            plain.append(packed.sliced(at, stored));
        at += stored;
    }
    return plain;
}
