#include "records/SharedTexts.h"

#include "platform/host/Utf8Text.h"
#include "records/TextCache.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>

namespace {

constexpr qsizetype kLongestShared = 64;

struct ShortText {
    std::array<char, kLongestShared> bytes;
    std::uint8_t length = 0;

    ShortText() = default;
    explicit ShortText(QByteArrayView text) : length(static_cast<std::uint8_t>(text.size())) {
        std::copy(text.begin(), text.end(), bytes.begin());
    }
    [[nodiscard]] bool Matches(QByteArrayView text) const {
        return text.size() == length && std::equal(text.begin(), text.end(), bytes.begin());
    }
};

}  // namespace

QString SharedText(QByteArrayView utf8) {
    if (utf8.isEmpty()) return {};
    if (utf8.size() > kLongestShared) return TextOfUtf8(utf8);
    static TextCache<ShortText, QByteArrayView, QString, 8192> texts;
    const std::size_t hash =
        std::hash<std::string_view>{}({utf8.data(), static_cast<std::size_t>(utf8.size())});
    return texts.Get(utf8, hash, [&] { return TextOfUtf8(utf8); });
}
