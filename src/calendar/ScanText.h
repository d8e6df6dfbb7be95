#pragma once

#include <QString>
#include <initializer_list>
#include <variant>

/// Where a value that was read goes: %d an int, %f a float, %lf a double, %s a text.
using ScanTarget = std::variant<int*, float*, double*, QString*>;

/// Reads a text by a format of the language library as C's sscanf does: a blank in the format passes any
/// blanks, numbers and words pass blanks in front of them, every other character must come as it stands,
/// what follows the last field is left. The count of fields read up to the first that doesn't fit.
///
/// Differs from sscanf where that is unsafe or depends on the process's locale: the decimal character is the
/// full stop; a whole number too large for an int becomes the greatest (least) int; a floating-point number
/// too large or small to be held, "inf", "nan" and hexadecimal digits are no numbers; a word has no
/// limit. Only the forms above are known, and without a width. Format characters in the text are passed over.
[[nodiscard]] int ScanText(const QString& format, const QString& text,
                           std::initializer_list<ScanTarget> targets);

/// The text without its format characters (the Unicode category Cf): marks that direct the writing, such as
/// those in Arabic dates. They can't be seen, and mean nothing where numbers, dates and times are read.
[[nodiscard]] QString WithoutFormatCharacters(const QString& text);
