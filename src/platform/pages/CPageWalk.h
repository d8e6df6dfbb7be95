#pragma once

#include <QByteArray>
#include <functional>
#include <vector>

#include "platform/pages/CPageImage.h"
#include "platform/pages/RowBytes.h"

/// Finds the rows of a damaged file: those of its trees, as far as they can be walked from their roots, and
/// those of pages to which no tree leads any more. Pages that the file doesn't use hold rows that were
/// deleted or changed since; they are left out as far as the list of unused pages can be read.
class CPageWalk {
 public:
    /// A tree that the file's first page names.
    struct Tree {
        QByteArray name;
        bool isWhole = true;  ///< false: a page of it, or an entry, can't be read
    };
    struct Found {
        const RawRow& row;
        std::int64_t rowId;  ///< only in tables with numbers of rows
        const Tree* tree;    ///< null: no tree leads to it
    };
    using Visit = std::function<void(const Found& found)>;

    /// The image must outlive the walk.
    explicit CPageWalk(const CPageImage& image);

    /// Rows of trees come before the others.
    void ForEachRow(const Visit& visit) const;
    /// Whether a tree is known by name and was read to its end.
    [[nodiscard]] bool IsWhole(QByteArrayView name) const;
    /// Whether every tree was: what lies in loose pages is then nothing of the file's.
    [[nodiscard]] bool IsWhole() const;

 private:
    static constexpr int kLoose = -1;
    static constexpr int kNoTree = -2;  ///< unused, or behind a page of a tree

    void ReadSchema();
    void WalkTree(PageNumber root, int tree);
    [[nodiscard]] std::vector<PageNumber> TakePage(PageNumber page, int tree);
    void FollowUnused();
    void TakeUnused(PageNumber page);
    void GiveRows(PageNumber page, const Tree* tree, const Visit& visit) const;
    [[nodiscard]] int& OwnerOf(PageNumber page) { return m_owners[page - 1]; }

    const CPageImage& m_image;
    std::vector<Tree> m_trees;
    std::vector<int> m_owners;  ///< by page: the tree's place, kLoose or kNoTree
};
