#pragma once

#include <QString>

/// Whether a character acts on the terminal, or on the characters beside it, instead of being seen: controls
/// (C0, C1), marks of direction and other format characters, separators of lines and paragraphs. Unicode's
/// categories Cc, Cf, Zl, Zp.
[[nodiscard]] bool IsUnseen(char32_t character);

/// The text with a mark in place of each unseen character, so that nobody is misled by one: a control as its
/// picture (U+241B for the escape character), any other by its number, "<U+202E>". The joiners of emoji and
/// Persian words stay.
[[nodiscard]] QString WithMarks(const QString& text, bool keepLineFeeds);
