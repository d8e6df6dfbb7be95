#pragma once

#include "lang/LoadText.h"

#include <QByteArray>
#include <QString>
#include <string_view>
#include <type_traits>

namespace FormatTextDetail {
/// The letter of an argument's type as the generated signatures write it: d integer, g floating point, s
/// text.
template <class T>
constexpr char LetterOf() {
    // printf takes what it is given at face value: a wider number under %d would be read wrongly.
    static_assert(!std::is_integral_v<T> || sizeof(T) <= sizeof(int), "%d takes numbers of at most int size");
    if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) return 'd';
    if constexpr (std::is_floating_point_v<T>) return 'g';
    return 's';
}
/// printf drops a U+FEFF at the beginning of a text: it gets one to drop.
inline QString WithMarkInFront(const QString& text) {
    return text.startsWith(QChar(QChar::ByteOrderMark)) ? QChar(QChar::ByteOrderMark) + text : text;
}
template <class T>
auto Pass(const T& value) {
    if constexpr (std::is_arithmetic_v<T>)
        return value;
    else if constexpr (std::is_enum_v<T>)
        return static_cast<int>(value);
    else
        return WithMarkInFront(value).toUtf8();
}
template <class T>
auto Raw(const T& value) {
    if constexpr (std::is_same_v<T, QByteArray>)
        return value.constData();
    else
        return value;
}
}  // namespace FormatTextDetail

/// A format text of the library filled in, printf style. Number and kinds of the arguments are checked
/// against the text when the caller is compiled: FormatText<Text::SpanClock>(1, 30) gives "1:30".
template <Text Id, class... Args>
[[nodiscard]] QString FormatText(const Args&... args) {
    constexpr char kGiven[] = {FormatTextDetail::LetterOf<Args>()..., '\0'};
    static_assert(TextSignature(Id) == std::string_view(kGiven), "the arguments don't fit the text's format");
    return [](const auto&... held) {
        return QString::asprintf(LoadText(Id).toUtf8().constData(), FormatTextDetail::Raw(held)...);
    }(FormatTextDetail::Pass(args)...);
}
