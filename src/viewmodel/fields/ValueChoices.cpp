#include "viewmodel/fields/ValueChoices.h"

#include "lang/LoadText.h"

#include <algorithm>

QString TextOf(std::span<const ValueChoice> choices, std::int64_t value) {
    const auto found = std::ranges::find(choices, value, &ValueChoice::value);
    return found == choices.end() ? QString() : LoadText(found->text);
}

std::optional<std::int32_t> NumberOf(std::span<const ValueChoice> choices, const QString& text) {
    const auto found = std::ranges::find_if(
        choices, [&text](const ValueChoice& choice) { return LoadText(choice.text) == text; });
    if (found == choices.end()) return {};
    return found->value;
}
