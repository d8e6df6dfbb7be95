#include "viewmodel/work/Work.h"

#include "fields/ItemMembers.h"
#include "fields/TimeFields.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"

#include <QHash>
#include <QStringList>
#include <algorithm>

namespace {

constexpr auto kFields = ItemFields<CTRecord>(kTimeFields);

/// The fields of the items that say what is worked on; the fifth is the currency.
const ItemField<CTRecord>& FieldOf(std::size_t item) {
    return kFields[item];
}

}  // namespace

bool Work::HasItems() const {
    return std::ranges::any_of(items, [](const QString& item) { return !item.isEmpty(); });
}

std::size_t qHash(const Work& work, std::size_t seed) {
    return qHashMulti(seed, work.items[0], work.items[1], work.items[2], work.items[3], work.notes);
}

int ListOfWorkItem(std::size_t item) {
    return FieldOf(item).list;
}

Work WorkOf(const CTRecord& record) {
    Work work;
    for (std::size_t i = 0; i < Work::kItems; ++i) work.items[i] = record.*FieldOf(i).member;
    work.notes = record.notes;
    return work;
}

Work KindOfWork(const CTRecord& record) {
    Work work = WorkOf(record);
    if (work.HasItems()) work.notes.clear();
    return work;
}

QString WorkWords(const Work& work) {
    QStringList parts(work.items.begin(), work.items.end());
    parts << work.notes.trimmed().section(u'\n', 0, 0).trimmed();
    parts.removeAll(QString());
    return parts.join(LoadText(Text::WorkBetween));
}

WorkTerms TermsOf(const CTRecord& record) {
    WorkTerms terms{.currency = record.item5, .isBillable = record.isBillable, .rate = {}};
    float rate = 0.0F;
    if (record.isBillable && record.GetRate(rate)) terms.rate = rate;
    return terms;
}

void PutWork(const Work& work, CTRecord& record) {
    for (std::size_t i = 0; i < Work::kItems; ++i) record.*FieldOf(i).member = work.items[i];
    record.notes = work.notes;
}

void PutTerms(const WorkTerms& terms, CTRecord& record) {
    if (record.item5.isEmpty()) record.item5 = terms.currency;
    if (!terms.isBillable || record.isBillable) return;
    record.SetBillable(true);
    if (terms.rate) static_cast<void>(record.SetRate(*terms.rate));
}
