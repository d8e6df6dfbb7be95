#include "platform/pages/PageSize.h"

#include <algorithm>

#include "platform/pages/RowBytes.h"
#include "platform/pages/TreePage.h"

namespace {

constexpr std::uint32_t kUsual = 4096;  ///< of the files that this program makes
constexpr PageNumber kLookedAt = 2000;  ///< so many pages tell which size is right

/// How many bytes of rows can be read with a page size.
qsizetype ReadableBytes(const CPageImage& image) {
    qsizetype bytes = 0;
    for (PageNumber page = 1; page <= std::min(image.Count(), kLookedAt); ++page) {
        const auto tree = ReadTreePage(image, page);
        if (!tree) continue;
        for (const TreeCell& cell : tree->cells)
            if (ReadRowBytes(cell.payload)) bytes += cell.payload.size();
    }
    return bytes;
}

}  // namespace

std::uint32_t PageSizeOf(QByteArrayView bytes) {
    if (const std::uint32_t size = CPageImage::SizeInHeader(bytes); size != 0) return size;
    std::uint32_t best = kUsual;
    qsizetype most = ReadableBytes(CPageImage(bytes, kUsual));
    for (std::uint32_t size = CPageImage::kLeastPage; size <= CPageImage::kLargestPage; size *= 2) {
        const qsizetype read = size == kUsual ? 0 : ReadableBytes(CPageImage(bytes, size));
        if (read <= most) continue;
        most = read;
        best = size;
    }
    return best;
}
