#include "viewmodel/list/TotalsText.h"

#include "calendar/GroupedNumber.h"
#include "config/Settings.h"
#include "lang/FormatText.h"
#include "viewmodel/list/StatusSums.h"

#include <QStringList>
#include <cmath>

namespace {

constexpr int kMinutesInHour = 60;

/// 1:05, and 1,234:05 for many hours.
QString ClockText(double hours) {
    const auto minutes = static_cast<long long>(std::llround(hours * kMinutesInHour));
    const long long wholeHours = minutes / kMinutesInHour;
    const QString whole = GroupedNumber(TheRegion(), static_cast<double>(wholeHours), 0);
    return whole + u':' + QString::number(minutes % kMinutesInHour).rightJustified(2, u'0');
}

QString MoneyText(const StatusSums::Sum& sum, const Settings& settings) {
    QString amount = GroupedNumber(TheRegion(), sum.amount, settings.precisionAmount);
    return sum.key.isEmpty() ? amount : FormatText<Text::TotalMoney>(sum.key, amount);
}

}  // namespace

QString HoursText(double hours, const Settings& settings) {
    const bool isDecimal = settings.spanDisplayFormat == 0;
    return FormatText<Text::TotalHours>(
        isDecimal ? GroupedNumber(TheRegion(), hours, settings.precisionDuration) : ClockText(hours));
}

QString MoneyTotals(const StatusSums& sums, const Settings& settings) {
    QStringList texts;
    for (const StatusSums::Sum& sum : sums.Sums())
        if (sum.amount > 0.0) texts.append(MoneyText(sum, settings));
    return texts.join(LoadText(Text::TotalsBetween));
}

QString HoursTotals(const StatusSums& sums, const Settings& settings) {
    double hours = 0.0;
    for (const StatusSums::Sum& sum : sums.Sums()) hours += sum.hours;
    return hours > 0.0 ? HoursText(hours, settings) : QString();
}

QString TotalsText(const StatusSums& sums, const Settings& settings) {
    QStringList texts{MoneyTotals(sums, settings), HoursTotals(sums, settings)};
    texts.removeAll(QString());
    return texts.join(LoadText(Text::TotalsBetween));
}

QString SelectedCount(int selected, int listed) {
    return FormatText<Text::TotalSelected>(GroupedNumber(TheRegion(), selected, 0),
                                           GroupedNumber(TheRegion(), listed, 0));
}

QString TotalsCount(const StatusSums& sums) {
    if (sums.Count() == 0) return {};
    const QString count = GroupedNumber(TheRegion(), sums.Count(), 0);
    if (sums.AreExpenses())
        return sums.Count() == 1 ? LoadText(Text::TotalExpense) : FormatText<Text::TotalExpenses>(count);
    return sums.Count() == 1 ? LoadText(Text::TotalRecord) : FormatText<Text::TotalRecords>(count);
}
