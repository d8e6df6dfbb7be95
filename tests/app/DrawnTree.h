#pragma once

#include "app/DependencyTree.h"
#include "records/CPRecord.h"

/// "A(PQ(write))B": children in brackets behind their parent.
inline QString Drawn(const DependencyTree::Node& node) {
    QString children;
    for (const auto* child = node.FirstChild(); child; child = child->Next()) children += Drawn(*child);
    if (!node.Item()) return children;
    return node.Item()->GetText() + (children.isEmpty() ? QString() : u'(' + children + u')');
}
