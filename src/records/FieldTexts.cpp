#include "records/FieldTexts.h"

#include "calendar/DateText.h"
#include "calendar/NumberText.h"
#include "lang/FormatText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/TextCache.h"

#include <bit>
#include <cstdint>

namespace {

/// A few numbers as a key; the regional values that a text depends on are among them.
template <std::size_t N>
struct Numbers {
    std::array<std::uint32_t, N> values{};

    Numbers() = default;
    template <class... Values>
    explicit Numbers(std::uint32_t first, Values... others)
        : values{first, static_cast<std::uint32_t>(others)...} {}
    [[nodiscard]] bool Matches(const Numbers& other) const { return values == other.values; }
    [[nodiscard]] std::size_t Hash() const {
        std::uint64_t hash = 0;
        for (const std::uint32_t value : values) hash = (hash ^ value) * 0x9E3779B97F4A7C15U;
        return static_cast<std::size_t>(hash >> 32U);
    }
};

template <std::size_t N, class Value, std::size_t Slots = 4096>
using NumberCache = TextCache<Numbers<N>, Numbers<N>, Value, Slots>;
/// A lifetime has some 20,000 days with records.
constexpr std::size_t kDays = 32768;

std::uint32_t Bits(int number) {
    return static_cast<std::uint32_t>(number);
}

}  // namespace

const DecimalText& TextOfDecimal(float value, int precision) {
    static NumberCache<3, DecimalText> cache;
    const CRegionalInfo& region = TheRegion();
    const Numbers<3> key(std::bit_cast<std::uint32_t>(value), precision, region.decimalChar);
    return cache.Get(key, key.Hash(), [&] {
        const float rounded = RoundDecimal(value, precision);
        return DecimalText{rounded, FormatNumber(region, static_cast<double>(rounded), precision)};
    });
}

const DayTexts& TextsOfDay(int month, int day, int year) {
    static NumberCache<5, DayTexts, kDays> cache;
    const CRegionalInfo& region = TheRegion();
    const Numbers<5> key(Bits(month), day, year, region.dateOrder, region.dateSeparator);
    return cache.Get(key, key.Hash(), [&] {
        return DayTexts{LongDateText(region, month, day, year), ShortDateText(region, month, day, year),
                        DayText(region, month, day)};
    });
}

const QString& TextOfClockSpan(int hours, int minutes) {
    static NumberCache<2, QString> cache;
    const Numbers<2> key(Bits(hours), minutes);
    return cache.Get(key, key.Hash(), [&] { return FormatText<Text::SpanClock>(hours, minutes); });
}

const QString& NoTimeText() {
    static const QString kText = QStringLiteral("--:--");
    return kText;
}
