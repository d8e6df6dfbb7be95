#include "platform/pages/CPageWalk.h"

#include <algorithm>

#include "platform/pages/TreePage.h"

namespace {

constexpr qsizetype kListHeader = 8;  ///< of a page of the list of unused pages: the next one, the count

struct Root {
    QByteArray name;
    PageNumber page;
};

/// A row of the table of tables: type, name, table, root page, statement.
std::optional<Root> RootOf(const RawRow& row) {
    if (row.size() != 5) return std::nullopt;
    const auto* name = std::get_if<RawText>(&row[1]);
    const auto* page = std::get_if<std::int64_t>(&row[3]);
    if (name == nullptr || page == nullptr || *page < 2 || *page > UINT32_MAX) return std::nullopt;
    return Root{name->utf8, static_cast<PageNumber>(*page)};
}

bool AreRows(const std::vector<TreeCell>& cells) {
    return std::ranges::all_of(cells,
                               [](const TreeCell& cell) { return ReadRowBytes(cell.payload).has_value(); });
}

/// The pages that a page of the list of unused ones names; nothing when it is no such page.
std::optional<std::vector<PageNumber>> UnusedIn(const CPageImage& image, PageNumber page) {
    const QByteArrayView bytes = image.Page(page);
    const PageNumber next = Number32(bytes, 0);
    const qsizetype count = Number32(bytes, 4);
    if ((next != 0 && !image.Has(next)) || count > (bytes.size() - kListHeader) / 4) return std::nullopt;
    std::vector<PageNumber> named;
    for (qsizetype i = 0; i < count; ++i) {
        named.push_back(Number32(bytes, kListHeader + 4 * i));
        if (!image.Has(named.back()) || named.back() == page) return std::nullopt;
    }
    return named;
}

}  // namespace

CPageWalk::CPageWalk(const CPageImage& image) : m_image(image), m_owners(image.Count(), kLoose) {
    if (image.Count() == 0) return;
    ReadSchema();
    FollowUnused();
}

void CPageWalk::ReadSchema() {
    m_trees.push_back({"sqlite_schema"});
    WalkTree(1, 0);
    std::vector<Root> roots;
    const auto note = [&](const Found& found) {
        if (auto root = RootOf(found.row)) roots.push_back(std::move(*root));
    };
    for (PageNumber page = 1; page <= m_image.Count(); ++page)
        if (OwnerOf(page) == 0) GiveRows(page, &m_trees.front(), note);
    for (Root& root : roots) {
        m_trees.push_back({std::move(root.name)});
        WalkTree(root.page, static_cast<int>(m_trees.size()) - 1);
    }
}

void CPageWalk::WalkTree(PageNumber root, int tree) {
    std::vector<PageNumber> next{root};
    while (!next.empty()) {
        const PageNumber page = next.back();
        next.pop_back();
        const std::vector<PageNumber> below = TakePage(page, tree);
        next.insert(next.end(), below.begin(), below.end());
    }
}

/// The pages below. A page belongs to one tree and stands in it once.
std::vector<PageNumber> CPageWalk::TakePage(PageNumber page, int tree) {
    Tree& taking = m_trees[static_cast<std::size_t>(tree)];
    const bool isFree = m_image.Has(page) && OwnerOf(page) == kLoose;
    auto read = isFree ? ReadTreePage(m_image, page) : std::nullopt;
    if (!read) {
        taking.isWhole = false;
        return {};
    }
    OwnerOf(page) = tree;
    taking.isWhole = taking.isWhole && read->isWhole && AreRows(read->cells);
    for (const TreeCell& cell : read->cells)
        for (const PageNumber behind : cell.overflow)
            if (OwnerOf(behind) == kLoose) OwnerOf(behind) = kNoTree;
    return std::move(read->children);
}

/// Where a page of the list is lost, those behind it are known by their looks: the first byte of such a page
/// is 0 in any file under 64 GiB, that of a page of a tree never is.
void CPageWalk::FollowUnused() {
    PageNumber next = m_image.FirstUnused();
    while (next != 0 && m_image.Has(next) && OwnerOf(next) == kLoose) {
        const PageNumber page = next;
        TakeUnused(page);
        next = OwnerOf(page) == kNoTree ? Number32(m_image.Page(page), 0) : 0;
    }
    for (PageNumber page = 2; page <= m_image.Count(); ++page)
        if (OwnerOf(page) == kLoose && m_image.Page(page)[0] == 0) TakeUnused(page);
}

void CPageWalk::TakeUnused(PageNumber page) {
    const auto named = UnusedIn(m_image, page);
    if (!named) return;
    OwnerOf(page) = kNoTree;
    for (const PageNumber unused : *named)
        if (OwnerOf(unused) == kLoose) OwnerOf(unused) = kNoTree;
}

void CPageWalk::GiveRows(PageNumber page, const Tree* tree, const Visit& visit) const {
    const auto read = ReadTreePage(m_image, page);
    if (!read) return;
    for (const TreeCell& cell : read->cells)
        if (const auto row = ReadRowBytes(cell.payload)) visit({*row, cell.rowId, tree});
}

void CPageWalk::ForEachRow(const Visit& visit) const {
    for (PageNumber page = 1; page <= m_image.Count(); ++page)
        if (const int owner = m_owners[page - 1]; owner >= 0)
            GiveRows(page, &m_trees[static_cast<std::size_t>(owner)], visit);
    for (PageNumber page = 1; page <= m_image.Count(); ++page)
        if (m_owners[page - 1] == kLoose) GiveRows(page, nullptr, visit);
}

bool CPageWalk::IsWhole(QByteArrayView name) const {
    return std::ranges::any_of(m_trees, [&](const Tree& tree) { return tree.name == name && tree.isWhole; });
}

bool CPageWalk::IsWhole() const {
    return !m_trees.empty() && std::ranges::all_of(m_trees, &Tree::isWhole);
}
