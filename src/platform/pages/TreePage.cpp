#include "platform/pages/TreePage.h"

#include <algorithm>

#include "platform/pages/RowBytes.h"

namespace {

/// The first byte of a page of a tree.
constexpr unsigned char kInnerIndex = 2;
constexpr unsigned char kInnerTable = 5;
constexpr unsigned char kLeafIndex = 10;
constexpr unsigned char kLeafTable = 13;

constexpr qsizetype kLeafHeader = 8;
constexpr qsizetype kInnerHeader = 12;
constexpr qsizetype kNextPage = 4;  ///< bytes of a page's number: in front of an entry, of an overflow page

/// A page that was overwritten by zeros would pass for a text of them.
bool IsBlank(QByteArrayView bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return byte == 0; });
}

/// Takes the entries of one page apart.
class CPageParser {
 public:
    CPageParser(const CPageImage& image, PageNumber page)
        : m_image(image), m_bytes(image.Page(page)), m_start(page == 1 ? CPageImage::kFileHeader : 0) {}

    [[nodiscard]] std::optional<TreePage> Parse();

 private:
    [[nodiscard]] bool ReadHeader(TreePage& page);
    [[nodiscard]] bool ReadCell(qsizetype at, TreePage& page);
    [[nodiscard]] bool ReadPayload(qsizetype at, TreeCell& cell) const;
    [[nodiscard]] bool AppendOverflow(PageNumber next, qsizetype size, TreeCell& cell) const;
    [[nodiscard]] qsizetype LocalSize(qsizetype size) const;
    bool TakeChild(PageNumber child, TreePage& page) const;

    const CPageImage& m_image;
    QByteArrayView m_bytes;
    qsizetype m_start;
    unsigned char m_kind = 0;
    qsizetype m_pointersAt = 0;
    qsizetype m_cells = 0;
};

bool CPageParser::ReadHeader(TreePage& page) {
    if (m_bytes.size() < m_start + kInnerHeader) return false;
    m_kind = static_cast<unsigned char>(m_bytes[m_start]);
    const bool isInner = m_kind == kInnerIndex || m_kind == kInnerTable;
    if (!isInner && m_kind != kLeafIndex && m_kind != kLeafTable) return false;
    page.isOfTable = m_kind == kInnerTable || m_kind == kLeafTable;
    m_pointersAt = m_start + (isInner ? kInnerHeader : kLeafHeader);
    m_cells = Number16(m_bytes, m_start + 3);
    if (m_pointersAt + 2 * m_cells > m_bytes.size()) return false;
    if (isInner && !TakeChild(Number32(m_bytes, m_start + kLeafHeader), page)) page.isWhole = false;
    return true;
}

bool CPageParser::TakeChild(PageNumber child, TreePage& page) const {
    if (!m_image.Has(child)) return false;
    page.children.push_back(child);
    return true;
}

/// How much of a row's bytes lies in the page itself.
qsizetype CPageParser::LocalSize(qsizetype size) const {
    const qsizetype usable = m_bytes.size();
    const qsizetype most = m_kind == kLeafTable ? usable - 35 : (usable - 12) * 64 / 255 - 23;
    if (size <= most) return size;
    const qsizetype least = (usable - 12) * 32 / 255 - 23;
    const qsizetype fitting = least + (size - least) % (usable - kNextPage);
    return fitting <= most ? fitting : least;
}

bool CPageParser::AppendOverflow(PageNumber next, qsizetype size, TreeCell& cell) const {
    for (qsizetype left = size; left > 0;) {
        const bool isKnown =
            std::find(cell.overflow.begin(), cell.overflow.end(), next) != cell.overflow.end();
        if (!m_image.Has(next) || isKnown) return false;
        const QByteArrayView page = m_image.Page(next);
        const qsizetype part = std::min(left, page.size() - kNextPage);
        if (IsBlank(page.sliced(kNextPage, part))) return false;
        cell.overflow.push_back(next);
        cell.payload.append(page.sliced(kNextPage, part));
        next = Number32(page, 0);
        left -= part;
    }
    return true;
}

bool CPageParser::ReadPayload(qsizetype at, TreeCell& cell) const {
    const auto size = ReadVarint(m_bytes, at);
    if (m_kind == kLeafTable) {
        const auto rowId = ReadVarint(m_bytes, at);
        if (!rowId) return false;
        cell.rowId = static_cast<std::int64_t>(*rowId);
    }
    // No row is larger than its file.
    const auto most = static_cast<std::uint64_t>(m_image.PageSize()) * m_image.Count();
    if (!size || *size < 2 || *size > most) return false;
    const auto whole = static_cast<qsizetype>(*size);
    const qsizetype local = LocalSize(whole);
    const bool hasOverflow = local < whole;
    if (at + local + (hasOverflow ? kNextPage : 0) > m_bytes.size()) return false;
    cell.payload = m_bytes.sliced(at, local).toByteArray();
    return !hasOverflow || AppendOverflow(Number32(m_bytes, at + local), whole - local, cell);
}

/// The entries of an inner page begin with the page below; those of a table's inner page are nothing else.
bool CPageParser::ReadCell(qsizetype at, TreePage& page) {
    if (at < m_pointersAt + 2 * m_cells || at >= m_bytes.size()) return false;
    bool isRead = true;
    if (m_kind == kInnerIndex || m_kind == kInnerTable) {
        if (at + kNextPage >= m_bytes.size()) return false;
        isRead = TakeChild(Number32(m_bytes, at), page);
        at += kNextPage;
    }
    if (m_kind == kInnerTable) return isRead;
    TreeCell cell;
    if (!ReadPayload(at, cell)) return false;
    page.cells.push_back(std::move(cell));
    return isRead;
}

std::optional<TreePage> CPageParser::Parse() {
    TreePage page;
    if (!ReadHeader(page)) return std::nullopt;
    for (qsizetype i = 0; i < m_cells; ++i)
        if (!ReadCell(Number16(m_bytes, m_pointersAt + 2 * i), page)) page.isWhole = false;
    return page;
}

}  // namespace

std::optional<TreePage> ReadTreePage(const CPageImage& image, PageNumber page) {
    return CPageParser(image, page).Parse();
}
