#include "lists/DependencyMerge.h"

#include "records/CPRecord.h"

#include <QCryptographicHash>
#include <QHash>
#include <QSet>

namespace {

using Node = DependencyTree::Node;

QByteArray KeyBelow(const QByteArray& parent, const QString& id) {
    return QCryptographicHash::hash(parent + id.toUtf8(), QCryptographicHash::Md5);
}

QSet<QByteArray> KeysOf(const DependencyPlaces& places) {
    QSet<QByteArray> keys;
    for (const DependencyPlace& place : places) keys.insert(place.key);
    return keys;
}

/// The nodes by their places, the root by the empty one; of two at the same place the first.
QHash<QByteArray, Node*> NodesOf(const DependencyTree& tree) {
    QHash<QByteArray, Node*> nodes{{QByteArray(), &tree.Root()}};
    const DependencyPlaces places = PlacesOf(tree);
    Node* node = &tree.Root();
    for (const DependencyPlace& place : places) {
        node = DependencyTree::NextOf(*node);
        if (!nodes.contains(place.key)) nodes.insert(place.key, node);
    }
    return nodes;
}

/// What stands below something that went has gone with it.
void RemoveWhatWent(const DependencyPlaces& before, const QSet<QByteArray>& now, DependencyTree& tree) {
    const QHash<QByteArray, Node*> nodes = NodesOf(tree);
    for (const DependencyPlace& place : before) {
        const bool goesWithParent = !place.parent.isEmpty() && !now.contains(place.parent);
        if (goesWithParent || now.contains(place.key)) continue;
        if (Node* node = nodes.value(place.key)) tree.Remove(*node);
    }
}

}  // namespace

DependencyPlaces PlacesOf(const DependencyTree& tree) {
    DependencyPlaces places;
    QHash<const Node*, QByteArray> keys;
    for (const Node* node = DependencyTree::NextOf(tree.Root()); node; node = DependencyTree::NextOf(*node)) {
        const QByteArray parent = keys.value(node->Parent());
        const QString id = node->Item()->GetId();
        const QByteArray key = KeyBelow(parent, id);
        keys.insert(node, key);
        places.push_back({key, parent, id});
    }
    return places;
}

void CarryOver(const DependencyPlaces& before, const DependencyPlaces& now, DependencyTree& tree,
               const ItemLookup& find) {
    RemoveWhatWent(before, KeysOf(now), tree);
    const QSet<QByteArray> former = KeysOf(before);
    QHash<QByteArray, Node*> nodes = NodesOf(tree);
    for (const DependencyPlace& place : now) {
        Node* parent = nodes.value(place.parent);
        if (!parent || former.contains(place.key) || nodes.contains(place.key)) continue;
        if (const CPRecord* item = find(place.id)) nodes.insert(place.key, &tree.Append(*parent, *item));
    }
}
