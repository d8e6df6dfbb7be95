#pragma once

#include "app/Hints.h"
#include "records/TextAddressCache.h"
#include "viewmodel/tree/CTreeNode.h"
#include "viewmodel/tree/TreePath.h"

#include <QHash>
#include <QStringList>
#include <memory>
#include <vector>

class CCfgStore;
class CTreeListener;
class CVORec;
class CVelmarchDoc;
struct TreeLevelRow;

/// The visible records grouped by the values of the tree's columns: the first level by the first column,
/// below each of its nodes the second column, and so on. Holds texts and counts, no records.
class CDataTree {
 public:
    CDataTree(const CVelmarchDoc& document, const CCfgStore& settings);
    ~CDataTree();
    CDataTree(const CDataTree&) = delete;
    CDataTree& operator=(const CDataTree&) = delete;

    /// Null: nobody.
    void SetWatcher(CTreeListener* watcher) { m_watcher = watcher; }

    /// All visible records anew, by the levels that the settings have for the mode.
    void Rebuild();
    /// Only the root is left.
    void Clear();
    /// Counts a record in. Without a level nothing happens.
    void AddRecord(const CVORec& record);
    /// Counts a record out: a node that would come to 0 goes with everything below it, and that ends it. A
    /// text that isn't found is passed over, and the next level is looked for at the same node.
    void RemoveRecord(const CVORec& record);
    /// After a node was used as the filter: the visible records were chosen anew and the tree stays, so that
    /// the other nodes can still be chosen. All that are visible count as counted.
    void KeepOverFilter();
    /// Keeps the tree as a rebuild would make it. Records about to change or to go are counted out while the
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
    void Fill();
    CTreeNode* LeafOf(const CVORec& record, const std::vector<std::uint32_t>& numbers);
    [[nodiscard]] bool HasLevelsOf(const CVORec& record) const;
    [[nodiscard]] std::uint32_t NumberOf(const QString& text);
    [[nodiscard]] CTreeNode* ChildOf(const CTreeNode& parent, std::uint32_t textNumber) const;
    CTreeNode* AddChild(CTreeNode& parent, const QString& text, std::uint32_t textNumber);
    void RemoveChild(CTreeNode& node);
    void Free(CTreeNode* node);
    void CountIn(const QStringList& ids);
    void CountOut(const QString& id);

    const CVelmarchDoc& m_document;
    const CCfgStore& m_settings;
    CTreeListener* m_watcher = nullptr;
    std::unique_ptr<CTreeNode> m_root;
    std::vector<int> m_columns;
    std::vector<Level> m_levels;
    QHash<quint64, CTreeNode*> m_nodes;  ///< all but the root, by the numbers of parent and text
    QHash<QString, std::uint32_t> m_texts;
    TextAddressCache<std::uint32_t, 4096> m_known;  ///< numbers by text
    std::uint32_t m_nextNode = 1;
    std::vector<bool> m_isCounted;  ///< by the records' places in the document
    unsigned m_edition = 0;         ///< of those places
    bool m_isFilling = false;       ///< many come at once: nobody is told of each, and none is sorted
};
