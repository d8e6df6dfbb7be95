#pragma once

#include <QStringView>

/// A character of a page that is written by its name or number.
struct PageEntity {
    char32_t sign = 0;     ///< 0: this is no such character, the "&" stands for itself
    qsizetype length = 1;  ///< how much of the text it takes, from "&" to ";"
};

/// The one that the text begins with, which begins with "&": "&amp;", "&#228;", "&#xE4;". A number that no
/// character has is U+FFFD.
[[nodiscard]] PageEntity EntityAt(QStringView text);
