#pragma once

#include "app/DependencyTree.h"

/// A view of a tree that is being edited hears of each change to it.
class CDependencyListener {
 public:
    using Node = DependencyTree::Node;
    virtual ~CDependencyListener() = default;
    /// Everything goes, and something else comes.
    virtual void BeforeReset() = 0;
    virtual void AfterReset() = 0;
    /// Nodes are about to come under this one; afterwards all its children are in order.
    virtual void BeforeAdd(const Node& under) = 0;
    virtual void AfterAdd(const Node& under) = 0;
    /// The node goes with everything below it.
    virtual void BeforeRemove(const Node& node) = 0;
    virtual void AfterRemove() = 0;
    /// The node takes everything below it along; afterwards it stands at its place under another parent.
    virtual void BeforeMove(const Node& node, const Node& to) = 0;
    virtual void AfterMove(const Node& node) = 0;
    /// Items show other texts, and so nodes may stand in another order among their siblings.
    virtual void AfterRename() = 0;
};
