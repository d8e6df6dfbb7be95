#include "viewmodel/list/StatusSums.h"

#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <algorithm>

namespace {

QString TimeText(const StatusSums::Sum& sum, int amountPrecision, int durationPrecision) {
    const QString& separator = LoadText(Text::SumSeparator);
    const bool hasAmount = sum.amount > 0.0, hasHours = sum.hours > 0.0;
    QString text;
    if (!sum.key.isEmpty() && (hasAmount || hasHours)) text += sum.key + separator;
    if (hasAmount) text += FormatNumber(TheRegion(), sum.amount, amountPrecision) + separator;
    if (hasHours) text += FormatNumber(TheRegion(), sum.hours, durationPrecision);
    return text;
}

QString ExpenseText(const StatusSums::Sum& sum, int amountPrecision) {
    if (sum.key.isEmpty() || !(sum.amount > 0.0)) return {};
    return sum.key + LoadText(Text::SumSeparator) + FormatNumber(TheRegion(), sum.amount, amountPrecision);
}

}  // namespace

void StatusSums::Add(const CTRecord& record) {
    ++m_count;
    float amount = 0.0F, hours = 0.0F;
    if (!record.GetAmount(amount)) amount = 0.0F;
    if (!record.spans.effective.GetDecimal(hours)) hours = 0.0F;
    Sum& sum = SumOf(record.item5);
    sum.amount += static_cast<double>(amount);
    sum.hours += static_cast<double>(hours);
}

void StatusSums::Add(const CERecord& record) {
    ++m_count;
    m_areExpenses = true;
    m_cut.Add(record);
    float amount = 0.0F;
    if (!record.GetAmount(amount)) amount = 0.0F;
    SumOf(record.item5).amount += static_cast<double>(amount);
}

void StatusSums::Add(const CVORec& record) {
    if (record.Kind() == RecordKind::Time)
        Add(static_cast<const CTRecord&>(record));
    else if (record.Kind() == RecordKind::Expense)
        Add(static_cast<const CERecord&>(record));
}

StatusSums::Sum& StatusSums::SumOf(const QString& key) {
    return m_sums[m_known.Get(key, [&] { return PlaceOf(key); })];
}

std::size_t StatusSums::PlaceOf(const QString& key) {
    if (const auto place = m_places.constFind(key); place != m_places.cend()) return *place;
    m_places.insert(key, m_sums.size());
    m_sums.push_back({key});
    return m_sums.size() - 1;
}

std::vector<StatusSums::Sum> StatusSums::Sums() const {
    std::vector<Sum> sums = m_sums;
    std::ranges::sort(sums, {}, &Sum::key);
    return sums;
}

QString StatusSums::CountText() const {
    return m_count > 0 ? FormatText<Text::CountInBrackets>(m_count) : QString();
}

QString StatusSums::SumsText(int amountPrecision, int durationPrecision) const {
    QStringList texts;
    for (const Sum& sum : Sums())
        texts.append(m_areExpenses ? ExpenseText(sum, amountPrecision)
                                   : TimeText(sum, amountPrecision, durationPrecision));
    return texts.join(LoadText(Text::SumsBetween));
}
