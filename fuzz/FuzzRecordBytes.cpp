// Records from bytes. The first byte says which kind, whether its texts are 8-bit, and whether a block of
// data is packed. A record that was read writes bytes that read as the same record.
#include "Fuzz.h"
#include "FuzzTexts.h"
#include "records/CDRecord.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

#include <cmath>

namespace {

constexpr RecordKind kKinds[] = {RecordKind::Time, RecordKind::Expense, RecordKind::PulldownItem,
                                 RecordKind::Dependency};

std::unique_ptr<CVORec> Empty(RecordKind kind, bool isPacked) {
    std::unique_ptr<CVORec> record = NewRecord(kind);
    if (kind == RecordKind::Dependency) static_cast<CDRecord&>(*record).SetPacked(isPacked);
    return record;
}

/// Rounding in single precision may move a large number by its last digits each time: wanted.
bool IsAlike(float one, float other) {
    return one == other || (std::isnan(one) && std::isnan(other)) ||
           std::fabs(one - other) <= std::fabs(one) * 1e-5F;
}

/// Compares the decimals of two records and makes them equal, so that the rest can be compared by its bytes.
void Level(const DecimalField& one, DecimalField& other) {
    Demand(IsAlike(one.value, other.value), "a decimal is the same when it is read again");
    other = one;
}

void LevelDecimals(const CVORec& one, CVORec& other) {
    if (one.Kind() == RecordKind::Time) {
        Level(static_cast<const CTRecord&>(one).rate, static_cast<CTRecord&>(other).rate);
        Level(static_cast<const CTRecord&>(one).amount, static_cast<CTRecord&>(other).amount);
    } else if (one.Kind() == RecordKind::Expense) {
        Level(static_cast<const CERecord&>(one).rate, static_cast<CERecord&>(other).rate);
        Level(static_cast<const CERecord&>(one).amount, static_cast<CERecord&>(other).amount);
        Level(static_cast<const CERecord&>(one).distance, static_cast<CERecord&>(other).distance);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LoadTexts();
    CInput input(data, size);
    const int choice = input.Byte();
    const RecordKind kind = kKinds[choice % 4];
    const bool isAnsi = choice & 4;
    const bool isPacked = choice & 8;

    const auto record = Empty(kind, isPacked);
    if (!record->FromBytes(input.Rest(), isAnsi)) return 0;
    const QByteArray bytes = record->ToBytes();
    const auto again = Empty(kind, isPacked);
    Demand(again->FromBytes(bytes, false), "what a record writes can be read");
    LevelDecimals(*record, *again);
    Demand(bytes == again->ToBytes(), "a record that was read and written is the same when it is read again");
    return 0;
}
