#include "records/SharedTexts.h"

#include "platform/host/Utf8Text.h"
#include "records/TextCache.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

namespace {

/// A text of some units, as the key that it is looked up by.
template <class Unit, std::size_t Longest>
struct ShortText {
    using View = std::basic_string_view<Unit>;

    std::array<Unit, Longest> units;
    std::uint8_t length = 0;

    ShortText() = default;
    explicit ShortText(View text) : length(static_cast<std::uint8_t>(text.size())) {
        std::copy(text.begin(), text.end(), units.begin());
    }
    [[nodiscard]] bool Matches(View text) const { return text == View(units.data(), length); }
};

template <class Unit, std::size_t Longest, std::size_t Slots>
using ShortTextCache = TextCache<ShortText<Unit, Longest>, std::basic_string_view<Unit>, QString, Slots>;

constexpr std::size_t kLongestShared = 64;
constexpr std::size_t kLongestSharedUnits = 32;
/// Days are texts here, too.
constexpr std::size_t kSharedUnits = 32768;

}  // namespace

QString SharedText(QByteArrayView utf8) {
    if (utf8.isEmpty()) return {};
    const std::string_view view(utf8.data(), static_cast<std::size_t>(utf8.size()));
    if (view.size() > kLongestShared) return TextOfUtf8(utf8);
    static ShortTextCache<char, kLongestShared, 8192> texts;
    return texts.Get(view, std::hash<std::string_view>{}(view), [&] { return TextOfUtf8(utf8); });
}

QString SharedText(QStringView text) {
    if (text.isEmpty()) return {};
    const std::u16string_view view(text.utf16(), static_cast<std::size_t>(text.size()));
    if (view.size() > kLongestSharedUnits) return text.toString();
    static ShortTextCache<char16_t, kLongestSharedUnits, kSharedUnits> texts;
    return texts.Get(view, std::hash<std::u16string_view>{}(view), [&] { return text.toString(); });
}
