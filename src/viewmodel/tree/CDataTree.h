#pragma once

#include "app/Hints.h"
#include "records/TextAddressCache.h"
#include "viewmodel/tree/CCountedRecords.h"
#include "viewmodel/tree/CTreeNode.h"
#include "viewmodel/tree/TreePath.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <array>
#include <memory>
#include <optional>
#include <vector>

class CCfgStore;
class CTreeListener;
class CVORec;
class CVelmarchDoc;
struct TreeLevelRow;

/// Records grouped by the values of the tree's columns: the first level by the first column, below each of
/// its nodes the second column, and so on. Holds texts and counts, no records.
///
/// It counts the visible records. While the list is narrowed to a node, it counts what the filter lets pass
/// without that node, so that the other nodes can still be chosen.
class CDataTree {
 public:
    CDataTree(CVelmarchDoc& document, const CCfgStore& settings);
    ~CDataTree();
    CDataTree(const CDataTree&) = delete;
    CDataTree& operator=(const CDataTree&) = delete;

    /// Null for none.
    void SetListener(CTreeListener* listener) { m_listener = listener; }

    /// All records that count anew, by the levels that the settings have for the mode.
    void Rebuild();
    /// Only the root is left.
    void Clear();
    /// Counts a record in. Without a level nothing happens.
    void AddRecord(const CVORec& record);
    /// Counts a record out: a node that would come to 0 goes with everything below it, and that ends it. A
    /// text that isn't found is passed over, and the next level is looked for at the same node.
    void RemoveRecord(const CVORec& record);
    /// Narrows the list to the records of a node; the root shows all of the period. The views are told, the
    /// tree stays as it is. Nothing happens to a node that the list shows already.
    void Choose(const CTreeNode& node);
    /// The node whose records the list shows: the chosen one as long as the filter is the one that choosing
    /// it made, the root where the filter has no condition. Null for any other filter.
    [[nodiscard]] const CTreeNode* Shown() const;
    /// Makes the tree what a rebuild would make. Records about to change or to go are counted out while the
    /// document still has their old values, and changed or new ones in.
    void OnHint(Hint hint, const QStringList& ids);

    [[nodiscard]] const CTreeNode& Root() const { return *m_root; }
    /// The columns of the levels as of the last rebuild.
    [[nodiscard]] const std::vector<int>& Columns() const { return m_columns; }
    /// From the first level down to the node.
    [[nodiscard]] static QStringList PathOf(const CTreeNode& node);
    /// The same with the columns of the levels.
    [[nodiscard]] TreePath StepsTo(const CTreeNode& node) const;
    /// The node at the end of a path; null where there is none. The empty path leads to the root.
    [[nodiscard]] const CTreeNode* Find(const QStringList& path) const;

 private:
    struct Level;

    void TakeLevels();
    void FreeNodes();
    void FillAnew();
    template <class At>
    void Fill(std::size_t places, const At& at);
    [[nodiscard]] const TreePath& Chosen() const;
    [[nodiscard]] bool IsNarrowed() const;
    CTreeNode* LeafOf(const CVORec& record, const std::vector<std::uint32_t>& numbers);
    [[nodiscard]] bool HasLevelsOf(const CVORec& record) const;
    [[nodiscard]] std::uint32_t NumberOf(const QString& text);
    [[nodiscard]] CTreeNode* ChildOf(const CTreeNode& parent, std::uint32_t textNumber) const;
    CTreeNode* MakeChild(CTreeNode& parent, const QString& text, std::uint32_t textNumber);
    CTreeNode* AppendChild(CTreeNode& parent, const QString& text, std::uint32_t textNumber);
    CTreeNode* InsertChild(CTreeNode& parent, const QString& text, std::uint32_t textNumber);
    void RemoveChild(CTreeNode& node);
    void Free(CTreeNode* node);
    void CountIn(Hint hint, const QStringList& ids);
    void CountOut(const QString& id);
    template <class Work>
    void AsBatch(qsizetype records, const Work& work);
    void TellCount(CTreeNode& node);

    CVelmarchDoc& m_document;
    const CCfgStore& m_settings;
    CTreeListener* m_listener = nullptr;
    std::unique_ptr<CTreeNode> m_root;
    std::vector<int> m_columns;
    std::vector<Level> m_levels;
    QHash<quint64, CTreeNode*> m_nodes;  ///< all but the root, by the numbers of parent and text
    QHash<QString, std::uint32_t> m_texts;
    TextAddressCache<std::uint32_t, 4096> m_known;  ///< numbers by text
    std::uint32_t m_nextNode = 1;
    CCountedRecords m_counted;
    std::optional<QSet<CTreeNode*>> m_gathered;  ///< during a batch: whose counts are still to be told
    std::array<TreePath, 2> m_chosen;            ///< by mode; empty for none
    bool m_isChoosing = false;                   ///< the hint that is on its way comes from the tree itself
};
