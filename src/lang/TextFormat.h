#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The kinds of arguments that a format text takes, in order: d whole number, g floating point, s text
/// ("%d of %s" gives "ds"). Nothing when a percent sign starts no known form; "%%" is a percent sign.
/// Used by the generator and by the loader, so both read formats alike.
[[nodiscard]] inline std::optional<std::string> FormatKinds(std::string_view text) {
    std::string kinds;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') continue;
        ++i;
        if (i < text.size() && text[i] == '%') continue;
        while (i < text.size() && ((text[i] >= '0' && text[i] <= '9') || text[i] == '.')) ++i;
        switch (i < text.size() ? text[i] : '\0') {
            case 'd':
                kinds += 'd';
                break;
            case 'f':
            case 'g':
                kinds += 'g';
                break;
            case 's':
                kinds += 's';
                break;
            default:
                return std::nullopt;
        }
    }
    return kinds;
}
