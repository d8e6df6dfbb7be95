#include "app/DependencyBytes.h"

#include "records/CPRecord.h"

namespace {

using Node = DependencyTree::Node;

constexpr char kGroup = 21;
constexpr char kItem = 51;
constexpr char kItemEnd = 61;
constexpr char kGroupEnd = 41;

/// Walks the bytes once and builds the tree as it goes.
class TreeReader {
 public:
    TreeReader(const QByteArray& bytes, const ItemLookup& find)
        : m_bytes(bytes), m_find(find), m_last(&m_tree.Root()) {}

    std::optional<DependencyTree> Read() {
        while (m_at < m_bytes.size())
            if (!ReadOne()) return std::nullopt;
        return std::move(m_tree);
    }

 private:
    bool ReadOne() {
        switch (m_bytes[m_at++]) {
            case kGroup:
                return BeginGroup();
            case kItem:
                return m_group && ReadItem();
            case kGroupEnd:
                return EndGroup();
            default:
                return false;
        }
    }
    bool BeginGroup() {
        if (!m_last) return false;
        m_group = std::exchange(m_last, nullptr);
        return true;
    }
    bool ReadItem() {
        if (m_at == m_bytes.size()) return false;
        const qsizetype length = static_cast<unsigned char>(m_bytes[m_at++]);
        if (length >= m_bytes.size() - m_at || m_bytes[m_at + length] != kItemEnd) return false;
        const CPRecord* item = m_find(IdentityFromBytes(QByteArrayView(m_bytes).sliced(m_at, length)));
        if (!item) return false;
        m_at += length + 1;
        m_last = &m_tree.Prepend(*m_group, *item);
        return true;
    }
    bool EndGroup() {
        if (!m_group) return false;
        m_group = m_group->Parent();
        m_last = nullptr;
        return true;
    }

    const QByteArray& m_bytes;
    const ItemLookup& m_find;
    DependencyTree m_tree;
    qsizetype m_at = 0;
    Node* m_group = nullptr;  ///< whose children are being read
    Node* m_last;             ///< whose group may begin next
};

/// Writes the tree going along its pointers, last siblings first.
class TreeWriter {
 public:
    explicit TreeWriter(const DependencyTree::ItemTest& leftOut) : m_leftOut(leftOut) {}

    QByteArray Write(const Node& root) {
        const Node* node = EnterGroup(root);
        while (node) {
            WriteItem(*node);
            const Node* child = EnterGroup(*node);
            node = child ? child : LeaveGroups(node);
        }
        return m_bytes;
    }

 private:
    /// The last of the siblings up to this one that isn't left out.
    [[nodiscard]] const Node* Kept(const Node* node) const {
        while (node && m_leftOut && m_leftOut(*node->Item())) node = node->Previous();
        return node;
    }
    const Node* EnterGroup(const Node& parent) {
        const Node* child = Kept(parent.LastChild());
        if (child) m_bytes += kGroup;
        return child;
    }
    /// The item behind one without children, closing the groups that it was the end of; null at the end.
    const Node* LeaveGroups(const Node* node) {
        while (node->Parent()) {
            if (const Node* sibling = Kept(node->Previous())) return sibling;
            m_bytes += kGroupEnd;
            node = node->Parent();
        }
        return nullptr;
    }
    void WriteItem(const Node& node) {
        const QByteArray id = IdentityToBytes(node.Item()->GetId());
        m_bytes += kItem;
        m_bytes += static_cast<char>(id.size());
        m_bytes += id;
        m_bytes += kItemEnd;
    }

    const DependencyTree::ItemTest& m_leftOut;
    QByteArray m_bytes;
};

}  // namespace

std::optional<DependencyTree> TreeFromBytes(const QByteArray& bytes, const ItemLookup& find) {
    return TreeReader(bytes, find).Read();
}

QByteArray TreeToBytes(const DependencyTree& tree, const DependencyTree::ItemTest& leftOut) {
    return TreeWriter(leftOut).Write(tree.Root());
}

QByteArray IdentityToBytes(const QString& id) {
    return QByteArray::fromHex(id.toLatin1());
}

QString IdentityFromBytes(QByteArrayView bytes) {
    return QString::fromLatin1(bytes.toByteArray().toHex().toUpper());
}
