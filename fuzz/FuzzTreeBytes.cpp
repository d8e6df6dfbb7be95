// A tree of dependencies as it is stored. What was read is written and read as the same tree, and a tree
// written without an item reads as one from which the item was taken.
#include "Fuzz.h"
#include "app/DependencyBytes.h"
#include "records/CPRecord.h"

#include <array>
#include <utility>

namespace {

/// Eight items; the identity of each is sixteen times its number.
class Items {
 public:
    Items() {
        for (std::size_t i = 0; i < m_items.size(); ++i)
            m_items[i].SetId(IdentityFromBytes(QByteArray(16, static_cast<char>(i))));
    }
    [[nodiscard]] const CPRecord* Find(const QString& id) const {
        for (const CPRecord& item : m_items)
            if (item == id) return &item;
        return nullptr;
    }

 private:
    std::array<CPRecord, 8> m_items;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Items items;
    const ItemLookup find = [](const QString& id) { return items.Find(id); };
    auto tree = TreeFromBytes(CInput(data, size).Rest(), find);
    if (!tree) return 0;
    const QByteArray written = TreeToBytes(*tree);
    const auto again = TreeFromBytes(written, find);
    Demand(again.has_value(), "what was written can be read");
    Demand(TreeToBytes(*again) == written, "it is the same tree");

    const auto isGone = [](const CPRecord& item) { return item.GetId().startsWith(u"03"); };
    const QByteArray without = TreeToBytes(*tree, isGone);
    Demand(tree->Holds(isGone) == (without != written), "leaving out changes what holds the item");
    tree->RemoveIf(isGone);
    Demand(!tree->Holds(isGone), "a removed item is gone");
    Demand(TreeToBytes(*tree) == without, "leaving out is as good as removing");
    return 0;
}
