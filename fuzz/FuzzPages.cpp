// The pages of a damaged database file: the input is the file. Whatever stands in it, the walk ends, gives
// each page to one tree at most, and reads the same rows each time.
#include "Fuzz.h"
#include "platform/pages/CPageWalk.h"
#include "platform/pages/PageSize.h"

namespace {

struct Tally {
    qsizetype rows = 0;
    qsizetype bytes = 0;
    bool operator==(const Tally&) const = default;
};

qsizetype SizeOf(const RawValue& value) {
    if (const auto* text = std::get_if<RawText>(&value)) return text->utf8.size();
    if (const auto* blob = std::get_if<RawBlob>(&value)) return blob->bytes.size();
    return 0;
}

Tally CountRows(const CPageWalk& walk) {
    Tally tally;
    bool isLoose = false;
    walk.ForEachRow([&](const CPageWalk::Found& found) {
        Demand(found.tree == nullptr || !isLoose, "rows of trees come first");
        isLoose = found.tree == nullptr;
        ++tally.rows;
        for (const RawValue& value : found.row) tally.bytes += SizeOf(value);
    });
    return tally;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = CInput(data, size).Rest();
    const std::uint32_t pageSize = PageSizeOf(bytes);
    Demand(pageSize >= CPageImage::kLeastPage && pageSize <= CPageImage::kLargestPage,
           "the page size can be");
    const CPageImage image(bytes, pageSize);
    const CPageWalk walk(image);
    const Tally tally = CountRows(walk);
    Demand(tally == CountRows(walk), "the same rows each time");
    // An entry takes two bytes of its page at least; a text that lies in pages of its own may be read for
    // each.
    Demand(tally.rows <= bytes.size() / 2, "no more rows than there is room for");
    return 0;
}
