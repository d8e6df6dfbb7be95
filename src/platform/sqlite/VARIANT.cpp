#include "platform/sqlite/VARIANT.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();

/// Truncates toward zero; what doesn't fit becomes the nearest end of the range, no number becomes 0.
std::int32_t Truncated(double value) {
    if (std::isnan(value)) return 0;
    if (value <= static_cast<double>(kLowest)) return static_cast<std::int32_t>(kLowest);
    if (value >= static_cast<double>(kHighest)) return static_cast<std::int32_t>(kHighest);
    return static_cast<std::int32_t>(value);
}

/// The number at the beginning of a text: " -12 apples" is -12, "apples" is 0.
std::int32_t LeadingNumber(const QString& text) {
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace()) ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) negative = text[at++] == u'-';
    std::int64_t number = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at) {
        number = std::min(number * 10 + (text[at].unicode() - u'0'), kHighest + 1);
    }
    return static_cast<std::int32_t>(negative ? -number : std::min(number, kHighest));
}

float NumberOf(const QString& text) {
    bool isNumber = false;
    const float number = text.toFloat(&isNumber);
    return isNumber && std::isfinite(number) ? number : 0.0F;
}

}  // namespace

std::int32_t ToInt32(const VARIANT& value) {
    return std::visit(
        [](const auto& held) -> std::int32_t {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return 0;
            } else if constexpr (std::is_same_v<Held, QString>) {
                return LeadingNumber(held);
            } else if constexpr (std::is_floating_point_v<Held>) {
                return Truncated(static_cast<double>(held));
            } else {
                return held;
            }
        },
        value);
}

float ToFloat(const VARIANT& value) {
    return std::visit(
        [](const auto& held) -> float {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return 0.0F;
            } else if constexpr (std::is_same_v<Held, QString>) {
                return NumberOf(held);
            } else {
                return static_cast<float>(held);
            }
        },
        value);
}

QString ToText(const VARIANT& value) {
    return std::visit(
        [](const auto& held) -> QString {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return {};
            } else if constexpr (std::is_same_v<Held, QString>) {
                return held;
            } else if constexpr (std::is_floating_point_v<Held>) {
                return QString::number(static_cast<double>(held), 'g', 6);
            } else {
                return QString::number(held);
            }
        },
        value);
}
