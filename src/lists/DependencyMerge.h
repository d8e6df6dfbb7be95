#pragma once

#include "app/DependencyBytes.h"

#include <QStringList>

/// Where the items of a tree stand: for each node the identities on the way to it from the root, end to end;
/// depth-first, parents before their children.
[[nodiscard]] QStringList PathsOf(const DependencyTree& tree);

/// Does to a tree what was done to another one: what that had before and has no longer goes, with all below
/// it, and what it has only now is put behind the last child of its parent, where that is there. find: null
/// for an item that is gone; it and what stood below it is passed over.
/// Before A(P), now A(P Q); in the meantime the tree itself became A(P) B: it becomes A(P Q) B.
void CarryOver(const QStringList& before, const QStringList& now, DependencyTree& tree,
               const ItemLookup& find);
