#pragma once

#include "app/DependencyTree.h"

#include <QByteArray>
#include <optional>

/// A tree of list items as bytes, the form in which it is stored:
///
///     0x15          a group of children begins: of the item before it, of the root at the start
///     '3' n id '='  an item: n is the length of its identity, 16, then the identity's bytes
///     ')'           the group ends
///
/// A group runs from its last child to the first, and the reader puts each in front of those before.

/// Null for an identity that no item has.
using ItemLookup = std::function<const CPRecord*(const QString& id)>;

/// Nothing when an identity is unknown, a byte unexpected, or the end of an item missing. Bytes that end
/// between two items are a tree: groups needn't be closed.
[[nodiscard]] std::optional<DependencyTree> TreeFromBytes(const QByteArray& bytes, const ItemLookup& find);

/// leftOut: items that are passed over, with all that stands below them; null: none.
[[nodiscard]] QByteArray TreeToBytes(const DependencyTree& tree,
                                     const DependencyTree::ItemTest& leftOut = nullptr);

/// The 16 bytes of an identity and back.
[[nodiscard]] QByteArray IdentityToBytes(const QString& id);
[[nodiscard]] QString IdentityFromBytes(QByteArrayView bytes);
