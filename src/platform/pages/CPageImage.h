#pragma once

#include <QByteArrayView>
#include <cstdint>

using PageNumber = std::uint32_t;  ///< pages count from 1; 0 is none

/// The bytes of a database file as its pages, whatever has happened to them: nothing that stands in them is
/// trusted. The format is public: https://sqlite.org/fileformat2.html.
class CPageImage {
 public:
    static constexpr std::uint32_t kLeastPage = 512;
    static constexpr std::uint32_t kLargestPage = 65536;
    static constexpr qsizetype kFileHeader = 100;  ///< in front of the tree in page 1

    /// The bytes must outlive the image; pageSize is one that the format knows.
    CPageImage(QByteArrayView bytes, std::uint32_t pageSize) : m_bytes(bytes), m_pageSize(pageSize) {}
    /// The page size that a file's header tells; 0 where it is damaged.
    [[nodiscard]] static std::uint32_t SizeInHeader(QByteArrayView bytes);

    /// Whole pages only: what is left of one that was cut off isn't among them.
    [[nodiscard]] PageNumber Count() const {
        return m_pageSize == 0 ? 0 : static_cast<PageNumber>(m_bytes.size() / m_pageSize);
    }
    [[nodiscard]] qsizetype PageSize() const { return m_pageSize; }
    [[nodiscard]] bool Has(PageNumber page) const { return page >= 1 && page <= Count(); }
    /// Empty for a page that the file lacks.
    [[nodiscard]] QByteArrayView Page(PageNumber page) const;
    /// The first page of the list of unused ones; 0 where the header names none that can be.
    [[nodiscard]] PageNumber FirstUnused() const;

 private:
    QByteArrayView m_bytes;
    std::uint32_t m_pageSize;
};

/// An unsigned number of 2 or 4 bytes, most significant first, at a place that must lie within the bytes.
[[nodiscard]] std::uint32_t Number16(QByteArrayView bytes, qsizetype at);
[[nodiscard]] std::uint32_t Number32(QByteArrayView bytes, qsizetype at);
