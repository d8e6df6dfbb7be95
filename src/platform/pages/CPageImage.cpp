#include "platform/pages/CPageImage.h"

#include <QtEndian>

namespace {

constexpr QByteArrayView kMagic("SQLite format 3\0", 16);
constexpr qsizetype kPageSizeAt = 16;
constexpr qsizetype kFirstUnusedAt = 32;

}  // namespace

std::uint32_t Number16(QByteArrayView bytes, qsizetype at) {
    return qFromBigEndian<std::uint16_t>(bytes.data() + at);
}

std::uint32_t Number32(QByteArrayView bytes, qsizetype at) {
    return qFromBigEndian<std::uint32_t>(bytes.data() + at);
}

std::uint32_t CPageImage::SizeInHeader(QByteArrayView bytes) {
    if (bytes.size() < kFileHeader || !bytes.startsWith(kMagic)) return 0;
    const std::uint32_t stored = Number16(bytes, kPageSizeAt);
    const std::uint32_t size = stored == 1 ? kLargestPage : stored;
    return size >= kLeastPage && (size & (size - 1)) == 0 ? size : 0;
}

QByteArrayView CPageImage::Page(PageNumber page) const {
    return Has(page) ? m_bytes.sliced(PageSize() * (page - 1), PageSize()) : QByteArrayView();
}

PageNumber CPageImage::FirstUnused() const {
    if (SizeInHeader(m_bytes) != m_pageSize) return 0;
    const PageNumber page = Number32(m_bytes, kFirstUnusedAt);
    return Has(page) ? page : 0;
}
