#include "shell/core/StatusSums.h"

#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"

void StatusSums::Add(const CTRecord& record) {
    ++m_count;
    float amount = 0.0F, hours = 0.0F;
    if (!record.GetAmount(amount)) amount = 0.0F;
    if (!record.spans.effective.GetDecimal(hours)) hours = 0.0F;
    Sum& sum = m_sums[record.item5];
    sum.amount += static_cast<double>(amount);
    sum.hours += static_cast<double>(hours);
}

QString StatusSums::CountText() const {
    return m_count > 0 ? FormatText<Text::CountInBrackets>(m_count) : QString();
}

QString StatusSums::SumsText(int amountPrecision, int durationPrecision) const {
    const QString& separator = LoadText(Text::SumSeparator);
    QString text;
    for (auto sum = m_sums.begin(); sum != m_sums.end(); ++sum) {
        const bool hasAmount = sum->amount > 0.0, hasHours = sum->hours > 0.0;
        if (!sum.key().isEmpty() && (hasAmount || hasHours)) text += sum.key() + separator;
        if (hasAmount) text += FormatNumber(TheRegion(), sum->amount, amountPrecision) + separator;
        if (hasHours) text += FormatNumber(TheRegion(), sum->hours, durationPrecision);
        if (std::next(sum) != m_sums.end()) text += LoadText(Text::SumsBetween);
    }
    return text;
}
