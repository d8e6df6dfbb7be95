#include "cli/commands/KeptTexts.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/home/RecordContext.h"
#include "config/CCfgStore.h"
#include "entry/CCatalogueKeeper.h"
#include "entry/ExpenseEntryRules.h"
#include "entry/KeepInLists.h"
#include "entry/TimeEntryRules.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/StoreTransaction.h"

namespace {

/// Loads a list only when something is to go into it: adding a record without new texts stays quick.
class CLazyKeeper final : public CItemKeeper {
 public:
    explicit CLazyKeeper(RecordContext& context)
        : m_store(context.document.Store()), m_catalogue(context.catalogue) {}

    bool Keep(int list, const QString& text) override {
        if (text.isEmpty()) return false;
        const StoreTransaction hold(m_store);
        if (!hold.IsOpen() || !m_catalogue.LoadLists({list})) return false;
        const bool isKept = CCatalogueKeeper(m_catalogue).Keep(list, text);
        m_hasKept = m_hasKept || isKept;
        return isKept;
    }
    [[nodiscard]] bool HasKept() const { return m_hasKept; }

 private:
    CRecordStore& m_store;
    CPulldownCatalogue& m_catalogue;
    bool m_hasKept = false;
};

QString Given(const CArguments& arguments, const char* option) {
    return arguments.Value(option).value_or(QString()).trimmed();
}

/// The rule of the dialog, with what was typed in its page and the rest empty, on a record that goes nowhere.
void Keep(const CTRecord& record, const CArguments& arguments, const KeepInLists& keep) {
    TimeEntryRules::EntryPage page;
    page.item1 = Given(arguments, "item1");
    page.item2 = Given(arguments, "item2");
    page.item3 = Given(arguments, "item3");
    page.item4 = Given(arguments, "item4");
    page.item5 = Given(arguments, "item5");
    page.rate = Given(arguments, "rate");
    page.amount = Given(arguments, "amount");
    CTRecord scratch;
    scratch.Copy(record);
    TimeEntryRules::AcceptEntryPage(scratch, page, keep);
}

void Keep(const CERecord& record, const CArguments& arguments, const KeepInLists& keep) {
    ExpenseEntryRules::MoneyPage money;
    money.isDistance = record.isDistance;
    money.distance = Given(arguments, "distance");
    money.rate = Given(arguments, "rate");
    money.amount = Given(arguments, "amount");
    money.item5 = Given(arguments, "item5");
    ExpenseEntryRules::ItemsPage items;
    items.item1 = Given(arguments, "item1");
    items.item2 = Given(arguments, "item2");
    items.item3 = Given(arguments, "item3");
    items.item4 = Given(arguments, "item4");
    CERecord scratch;
    ExpenseEntryRules::AcceptMoneyPage(scratch, money, keep);
    ExpenseEntryRules::AcceptItemsPage(scratch, items, keep);
}

}  // namespace

bool KeepTexts(const CVORec& record, const CArguments& arguments, RecordContext& context) {
    CLazyKeeper keeper(context);
    const KeepInLists keep(context.settings, keeper);
    if (record.Kind() == RecordKind::Time)
        Keep(static_cast<const CTRecord&>(record), arguments, keep);
    else
        Keep(static_cast<const CERecord&>(record), arguments, keep);
    return keeper.HasKept();
}
