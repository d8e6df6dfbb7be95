#include "calendar/GroupedNumber.h"

#include "calendar/NumberText.h"

#include <algorithm>

QString GroupedNumber(const CRegionalInfo& region, double value, int precision) {
    constexpr qsizetype kGroup = 3;
    QString text = FormatNumber(region, value, precision);
    const auto isDigit = [](QChar c) { return c.isDigit(); };
    const qsizetype first = std::find_if(text.begin(), text.end(), isDigit) - text.begin();
    const qsizetype end = std::find_if_not(text.begin() + first, text.end(), isDigit) - text.begin();
    for (qsizetype at = end - kGroup; at > first; at -= kGroup) text.insert(at, QChar(region.groupChar));
    return text;
}
