#pragma once

#include "app/CPulldownCatalogue.h"
#include "app/RecordMode.h"

#include <QString>
#include <QStringList>

/// Editing which items hang under which: the logic of the dialog, without a widget. Works on a tree of its
/// own, children sorted by text, that takes the place of the catalogue's with Accept. Changes to the items
/// themselves (new, renamed, deleted) are stored at once, whatever happens to the tree. The catalogue must be
/// loaded before, and not anew while this exists. Whether records use an item that is renamed: IsRecordList.
class CDependencyEditor {
 public:
    using Node = DependencyTree::Node;
    CDependencyEditor(CPulldownCatalogue& catalogue, RecordMode mode);

    [[nodiscard]] const DependencyTree& Tree() const { return m_tree; }
    [[nodiscard]] bool IsChanged() const { return m_isChanged; }

    /// The list whose items can hang under a node; -1 below the last depth.
    [[nodiscard]] int NextListOf(const Node& node) const;
    /// Texts of that list, in list order, without those that hang there already.
    [[nodiscard]] QStringList Candidates(const Node& node) const;

    /// False when the text is no candidate.
    bool Add(Node& under, const QString& text);
    /// How many were added.
    int AddAll(Node& under);
    /// The root stays.
    bool Remove(Node& node);
    /// A new item of the list; false when it isn't acceptable.
    bool NewItem(int list, const QString& text);
    enum class Renamed { Done, Kept, Failed };
    /// Kept: the text is empty, or not acceptable as a new item. Nodes stay the same ones, in a new order
    /// where the new text has another place.
    Renamed RenameItem(int list, const QString& oldText, const QString& newText);
    /// From its list and from every place in both trees, the edited one too. Nodes that held it are gone.
    bool DeleteItem(int list, const QString& text);

    /// Puts the tree in place of the catalogue's when it was changed. The caller saves it.
    void Accept();

 private:
    [[nodiscard]] DependencyTree& Stored() const;

    CPulldownCatalogue& m_catalogue;
    RecordMode m_mode;
    DependencyTree m_tree;
    bool m_isChanged = false;
};
