#include "lists/DependencyMerge.h"

#include "records/CPRecord.h"

#include <QHash>
#include <QSet>

namespace {

using Node = DependencyTree::Node;

constexpr qsizetype kIdentity = 32;  // characters

QSet<QString> SetOf(const QStringList& paths) {
    return {paths.begin(), paths.end()};
}

QString ParentOf(const QString& path) {
    return path.chopped(kIdentity);
}

/// The nodes by their paths, the root by the empty one; of two at the same place the first.
QHash<QString, Node*> NodesOf(const DependencyTree& tree) {
    QHash<QString, Node*> nodes{{QString(), &tree.Root()}};
    QHash<const Node*, QString> paths{{&tree.Root(), QString()}};
    for (Node* node = DependencyTree::NextOf(tree.Root()); node; node = DependencyTree::NextOf(*node)) {
        const QString path = paths.value(node->Parent()) + node->Item()->GetId();
        paths.insert(node, path);
        if (!nodes.contains(path)) nodes.insert(path, node);
    }
    return nodes;
}

void RemoveWhatWent(const QStringList& before, const QSet<QString>& now, DependencyTree& tree) {
    const QHash<QString, Node*> nodes = NodesOf(tree);
    for (const QString& path : before) {
        const QString parent = ParentOf(path);
        const bool goesWithParent = !parent.isEmpty() && !now.contains(parent);
        if (goesWithParent || now.contains(path)) continue;
        if (Node* node = nodes.value(path)) tree.Remove(*node);
    }
}

}  // namespace

QStringList PathsOf(const DependencyTree& tree) {
    QStringList list;
    QHash<const Node*, QString> paths;
    for (const Node* node = DependencyTree::NextOf(tree.Root()); node; node = DependencyTree::NextOf(*node)) {
        const QString path = paths.value(node->Parent()) + node->Item()->GetId();
        paths.insert(node, path);
        list.append(path);
    }
    return list;
}

void CarryOver(const QStringList& before, const QStringList& now, DependencyTree& tree,
               const ItemLookup& find) {
    RemoveWhatWent(before, SetOf(now), tree);
    const QSet<QString> former = SetOf(before);
    QHash<QString, Node*> nodes = NodesOf(tree);
    for (const QString& path : now) {
        Node* parent = nodes.value(ParentOf(path));
        if (!parent || former.contains(path) || nodes.contains(path)) continue;
        if (const CPRecord* item = find(path.last(kIdentity)))
            nodes.insert(path, &tree.Append(*parent, *item));
    }
}
