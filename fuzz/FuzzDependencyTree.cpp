// The bytes of a tree of list items. Known are 256 items: their identities are a byte and fifteen zeros.
#include "Fuzz.h"
#include "app/DependencyBytes.h"
#include "records/CPRecord.h"

#include <vector>

namespace {

const std::vector<CPRecord>& Items() {
    static const std::vector<CPRecord> items = [] {
        std::vector<CPRecord> made(256, CPRecord(QStringLiteral("item")));
        for (int i = 0; i < 256; ++i)
            made[static_cast<std::size_t>(i)].SetId(
                QStringLiteral("%1").arg(i, 2, 16, QLatin1Char('0')).toUpper() + QString(30, u'0'));
        return made;
    }();
    return items;
}

const CPRecord* Find(const QString& id) {
    bool isNumber = false;
    const unsigned first = id.left(2).toUInt(&isNumber, 16);
    if (!isNumber || id.size() != 32 || id.mid(2) != QString(30, u'0')) return nullptr;
    return &Items()[first];
}

qsizetype Count(const DependencyTree& tree) {
    qsizetype count = 0;
    for (const auto* node = DependencyTree::NextOf(tree.Root()); node; node = DependencyTree::NextOf(*node))
        ++count;
    return count;
}

bool IsOdd(const CPRecord& item) {
    return item.GetId()[1].digitValue() % 2 == 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = CInput(data, size).Rest();
    std::optional<DependencyTree> tree = TreeFromBytes(bytes, Find);
    if (!tree) return 0;
    const qsizetype count = Count(*tree);
    Demand(count <= bytes.size() / 19, "an item takes 19 bytes");

    const QByteArray written = TreeToBytes(*tree);
    std::optional<DependencyTree> again = TreeFromBytes(written, Find);
    Demand(again.has_value(), "a tree that was written can be read");
    Demand(Count(*again) == count, "it has as many nodes");
    Demand(TreeToBytes(*again) == written, "it is the same tree");

    const QByteArray without = TreeToBytes(*tree, IsOdd);
    static_cast<void>(tree->RemoveIf(IsOdd));
    Demand(TreeToBytes(*tree) == without, "leaving items out is as removing them");
    Demand(!tree->Holds(IsOdd), "no removed item is left");
    return 0;
}
