#pragma once

#include "app/DependencyTree.h"

/// The same tree with one item in every place of another. Where both stand under one parent they become one
/// node, which has what stood below either, merged in turn: nothing that could be chosen before is lost. The
/// children of a node that something new came under are sorted by their texts.
[[nodiscard]] DependencyTree MergedTree(const DependencyTree& tree, const CPRecord& gone,
                                        const CPRecord& kept);
