// Run-length packing. The first two bytes are the limit of what is unpacked, the rest is both: packed bytes,
// and plain bytes that are to be packed.
#include "Fuzz.h"
#include "records/RunPack.h"

namespace {

void DemandRoundTrip(const QByteArray& plain) {
    const QByteArray packed = RunPack(plain);
    if (plain.size() == 1) return Demand(packed.isEmpty(), "a single byte packs to nothing");
    // One literal and a run of two, again and again, is the worst: four bytes for three.
    Demand(packed.size() <= plain.size() + (plain.size() + 2) / 3, "packing adds one byte in three at most");
    Demand(RunUnpack(packed, plain.size()) == plain, "what was packed unpacks to the same");
    if (!plain.isEmpty())
        Demand(!RunUnpack(packed, plain.size() - 1), "a limit that is one too low refuses it");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CInput input(data, size);
    const qsizetype low = input.Byte();
    const qsizetype limit = low + 256 * qsizetype{input.Byte()};
    DemandRoundTrip(input.Rest());
    const auto plain = RunUnpack(input.Rest(), limit);
    if (!plain) return 0;
    Demand(plain->size() <= limit, "no more is unpacked than the limit allows");
    DemandRoundTrip(*plain);
    return 0;
}
