#include "cli/commands/EnteredItems.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "cli/arguments/FieldEntry.h"
#include "cli/home/RecordContext.h"
#include "config/CCfgStore.h"
#include "entry/CCatalogueItems.h"
#include "entry/NewListItems.h"
#include "records/StoreTransaction.h"

namespace {

/// Loads a list only when something is to go into it: adding a record without new texts stays quick.
class CItemsOnDemand final : public CListItemService {
 public:
    explicit CItemsOnDemand(RecordContext& context)
        : m_store(context.document.Store()), m_catalogue(context.catalogue) {}

    bool Add(int list, const QString& text) override {
        if (text.isEmpty()) return false;
        const StoreTransaction hold(m_store);
        if (!hold.IsOpen() || !m_catalogue.LoadLists({list})) return false;
        const bool isAdded = CCatalogueItems(m_catalogue).Add(list, text);
        m_hasAdded = m_hasAdded || isAdded;
        return isAdded;
    }
    [[nodiscard]] bool HasAdded() const { return m_hasAdded; }

 private:
    CRecordStore& m_store;
    CPulldownCatalogue& m_catalogue;
    bool m_hasAdded = false;
};

}  // namespace

bool AddEnteredItems(const EnteredFields& fields, RecordContext& context) {
    CItemsOnDemand items(context);
    fields.addToLists(NewListItems(context.settings, items));
    return items.HasAdded();
}
