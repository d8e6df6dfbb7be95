#include "entry/TypedNumber.h"

#include "calendar/NumberText.h"
#include "calendar/ScanText.h"

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr QChar kMinus(0x2212);  ///< the minus sign of Swedish and other regions
constexpr QChar kApostrophe(0x2019);

bool IsDigits(QStringView text) {
    return std::ranges::all_of(text, [](QChar sign) { return sign >= u'0' && sign <= u'9'; });
}

/// Blanks of any width and both apostrophes stand for one another: nobody types a narrow blank.
bool PartsGroups(QChar sign, const CRegionalInfo& region) {
    const QChar group(region.groupChar);
    if (group.isSpace()) return sign.isSpace();
    if (group == kApostrophe || group == u'\'') return sign == kApostrophe || sign == u'\'';
    return sign == group;
}

bool IsDecimalSign(QChar sign, const CRegionalInfo& region) {
    return sign == QChar(region.decimalChar) || (sign == u'.' && !PartsGroups(sign, region));
}

/// Digits with one decimal sign at most.
bool IsPlain(const QString& digits, const CRegionalInfo& region) {
    QString rest = digits;
    for (qsizetype at = 0; at < rest.size(); ++at)
        if (rest[at] == u'.' || rest[at] == QChar(region.decimalChar)) {
            rest.remove(at, 1);
            break;
        }
    return !rest.isEmpty() && IsDigits(rest);
}

/// "1,234,567" or "12,34,567". A group in front begins with no zero: "0,125" isn't meant so.
bool AreGroups(const QStringList& groups) {
    const auto size = [&groups](qsizetype at) { return groups[at].size(); };
    const qsizetype last = groups.size() - 1;
    if (last < 1 || size(0) < 1 || size(0) > 3 || groups[0].startsWith(u'0') || size(last) != 3) return false;
    for (qsizetype at = 1; at < last; ++at)
        if (size(at) != size(1) || size(1) < 2 || size(1) > 3) return false;
    return std::ranges::all_of(groups, [](const QString& group) { return IsDigits(group); });
}

/// A number in groups without what parts them; nothing for one that isn't in groups.
std::optional<QString> WithoutGroups(const QString& digits, const CRegionalInfo& region) {
    if (region.groupChar == region.decimalChar) return {};
    QStringList groups{QString()};
    qsizetype at = 0;
    for (; at < digits.size() && !IsDecimalSign(digits[at], region); ++at)
        if (PartsGroups(digits[at], region))
            groups.append(QString());
        else
            groups.last() += digits[at];
    const QStringView behind = QStringView(digits).mid(at + 1);
    if (!AreGroups(groups) || !IsDigits(behind)) return {};
    return groups.join(QString()) + digits.mid(at);
}

TypedNumber Unreadable(const QString& text) {
    return {Typed::Unreadable, 0.0, text, false};
}

}  // namespace

TypedNumber ReadTypedNumber(const QString& text, const CRegionalInfo& region) {
    const QString typed = WithoutFormatCharacters(text).trimmed();
    if (typed.isEmpty()) return {};
    const bool isNegative = typed.front() == u'-' || typed.front() == kMinus;
    const QString digits = isNegative ? typed.mid(1) : typed;
    const bool isPlain = IsPlain(digits, region);
    const auto ungrouped = WithoutGroups(digits, region);
    if (!isPlain && !ungrouped) return Unreadable(typed);
    TypedNumber number{Typed::Value, 0.0, isPlain ? digits : *ungrouped, isPlain && ungrouped.has_value()};
    if (isNegative) number.plain.prepend(u'-');
    if (!ParseDouble(region, number.plain, number.value) || std::abs(number.value) > kMostTypedNumber)
        return Unreadable(typed);
    return number;
}

QString PlainNumber(const QString& text) {
    const TypedNumber typed = ReadTypedNumber(text, TheRegion());
    return typed.IsValue() ? typed.plain : text;
}

bool ShowsAsTyped(const QString& kept, int precision, const TypedNumber& typed) {
    double shown = 0.0;
    if (!typed.IsValue() || typed.isAmbiguous || !ParseDouble(TheRegion(), kept, shown)) return false;
    // Half a unit of the last place is what rounding takes or adds, and a little for halves themselves.
    const double half = 0.5001 * std::pow(10.0, -precision);
    return std::abs(shown - typed.value) <= half;
}
