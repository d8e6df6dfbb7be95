// Stored columns. The first byte says whether the rest is a blob, or the plain bytes that one is made of.
#include "Fuzz.h"
#include "FuzzTexts.h"
#include "config/CTreeColSet.h"
#include "config/ColumnBlob.h"
#include "records/ByteStream.h"
#include "records/GuardedBlock.h"
#include "records/RunPack.h"

namespace {

QByteArray BlobOf(const QByteArray& plain) {
    ByteStream stream;
    stream.PutBuffer(Guarded(RunPack(plain)));
    return stream.Release();
}

void DemandOrder(const CColSet& set) {
    for (const ColumnHalf half : {ColumnHalf::Time, ColumnHalf::Expense})
        for (const int column : set.Order(half)) {
            Demand(set.IsVisible(column), "an order has visible columns only");
            Demand(!set.IsExcluded(column), "and none that is excluded");
        }
}

/// Whatever positions a set has: moving, hiding and showing ends with a sound order.
void MoveAbout(CColSet& set) {
    for (const ColumnHalf half : {ColumnHalf::Time, ColumnHalf::Expense})
        for (int i = 0; i < Column::kCount; ++i) {
            const ColumnEntry entry = set.EntryAt(i);
            set.MoveUp(half, entry.position);
            set.MoveDown(half, entry.position);
            set.SetColumn(half, entry.caption, {entry.caption, entry.width, entry.position, !entry.visible});
            DemandOrder(set);
        }
}

template <class Set>
void Try(const QByteArray& blob, bool isSound) {
    Set set;
    Demand(set.LoadBlob(blob) == (isSound || IsEmptyColumnBlob(blob)), "a set loads what can be read");
    if (!isSound) return;
    set.Repair();
    DemandOrder(set);
    QByteArray written;
    Demand(set.MakeBlob(written), "a set that was loaded can be stored");
    Set again;
    Demand(again.LoadBlob(written), "what was stored can be loaded");
    for (const ColumnHalf half : {ColumnHalf::Time, ColumnHalf::Expense})
        Demand(again.Order(half) == set.Order(half), "it is the same order");
    MoveAbout(set);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LoadTexts();
    CInput input(data, size);
    const bool isPlain = input.Byte() % 2 == 1;
    const QByteArray blob = isPlain ? BlobOf(input.Rest()) : input.Rest();
    const std::optional<ColumnPayload> payload = ColumnsFromBlob(blob);
    if (payload) {
        const std::optional<QByteArray> written = ColumnBlobOf(*payload);
        Demand(written.has_value(), "columns that were read can be written");
        Demand(ColumnsFromBlob(*written) == payload, "and read again");
    }
    Try<CColSet>(blob, payload.has_value());
    Try<CTreeColSet>(blob, payload.has_value());
    return 0;
}
