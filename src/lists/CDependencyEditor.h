#pragma once

#include "app/CPulldownCatalogue.h"
#include "app/RecordMode.h"
#include "lists/DependencyMerge.h"

#include <QString>
#include <QStringList>

class CDependencyListener;

/// Editing which items hang under which: the logic of the dialog, without a widget. Works on a tree of its
/// own, children sorted by text, that takes the place of the catalogue's with Accept. Changes to the items
/// themselves (new, renamed, deleted) are stored at once, whatever happens to the tree. The catalogue must be
/// loaded before, and while this exists not anew but by TakeUp. Whether records use an item that is renamed:
/// IsRecordList.
class CDependencyEditor {
 public:
    using Node = DependencyTree::Node;
    CDependencyEditor(CPulldownCatalogue& catalogue, RecordMode mode);

    /// Null for none. It must outlive this, or be taken away before.
    void SetListener(CDependencyListener* listener);

    [[nodiscard]] RecordMode Mode() const { return m_mode; }
    [[nodiscard]] const DependencyTree& Tree() const { return m_tree; }
    /// Whether the caller has to save the tree after Accept.
    [[nodiscard]] bool IsChanged() const { return m_isChanged; }
    /// Whether nodes were added, removed or moved, which is lost without Accept. A deleted item isn't among
    /// that: the stored tree is without it already.
    [[nodiscard]] bool HasUnsaved() const { return m_hasUnsaved; }

    /// The list whose items can hang under a node; -1 below the last depth.
    [[nodiscard]] int NextListOf(const Node& node) const;
    /// Texts of that list, in list order, without those that hang there already.
    [[nodiscard]] QStringList Candidates(const Node& node) const;

    /// False when the text is no candidate.
    bool Add(Node& under, const QString& text) { return Add(under, QStringList(text)) == 1; }
    /// How many of the texts were candidates and are added.
    int Add(Node& under, const QStringList& texts);
    int AddAll(Node& under) { return Add(under, Candidates(under)); }
    /// The root stays.
    bool Remove(Node& node);
    /// Whether a node can stand under another one: that takes items of its list, isn't its parent already,
    /// and has no child with the same text.
    [[nodiscard]] bool CanMove(const Node& node, const Node& to) const;
    /// With all that stands below it.
    bool Move(Node& node, Node& to);
    /// A new item of the list; false when it isn't acceptable.
    bool NewItem(int list, const QString& text);
    enum class Renamed { Done, Kept, Failed };
    /// Kept: the text is empty, or not acceptable as a new item. Nodes stay the same ones, in a new order
    /// where the new text has another place.
    Renamed RenameItem(int list, const QString& oldText, const QString& newText);
    /// From its list and from every place in both trees, the edited one too. Nodes that held it are gone.
    bool DeleteItem(int list, const QString& text);

    /// Reads lists and trees anew where another program has written to the store, and does to the stored tree
    /// what was done to the one before. Nodes are other ones then, as are items. False when they can't be
    /// read: the tree is empty then, and of no use any more.
    [[nodiscard]] bool TakeUp();
    /// Puts the tree in place of the catalogue's when it was changed. The caller saves it.
    void Accept();

 private:
    [[nodiscard]] DependencyTree& Stored() const;
    void NoteEdit();
    void RemoveNode(Node& node);

    CPulldownCatalogue& m_catalogue;
    RecordMode m_mode;
    DependencyTree m_tree;
    DependencyPlaces m_before;        ///< of the tree as it was stored
    CDependencyListener* m_listener;  ///< never null
    bool m_isChanged = false;
    bool m_hasUnsaved = false;
};
