#pragma once

#include "app/DependencyBytes.h"

#include <QByteArray>
#include <vector>

/// Where an item stands in a tree, whichever node it is. The key is of one length at any depth: a stored tree
/// may be of any.
struct DependencyPlace {
    QByteArray key;     ///< made of the identities on the way to it from the root
    QByteArray parent;  ///< key of the place above; empty for the root
    QString id;         ///< of the item
};
using DependencyPlaces = std::vector<DependencyPlace>;

/// Depth-first, parents before their children.
[[nodiscard]] DependencyPlaces PlacesOf(const DependencyTree& tree);

/// Does to a tree what was done to another one: what that had before and has no longer goes, with all below
/// it, and what it has only now is put behind the last child of its parent, where that is there. find: null
/// for an item that is gone; it and what stood below it is passed over.
/// Before A(P), now A(P Q); in the meantime the tree itself became A(P) B: it becomes A(P Q) B.
void CarryOver(const DependencyPlaces& before, const DependencyPlaces& now, DependencyTree& tree,
               const ItemLookup& find);
