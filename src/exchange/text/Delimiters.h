#pragma once

#include "lang/Text.h"

#include <QString>
#include <optional>
#include <span>

/// What parts the fields and lines of a text file: each one character, or none.
struct Delimiters {
    QString qualifier;  ///< stands on both sides of a field
    QString separator;  ///< stands between two fields
    /// A line feed means: a line ends at CR or LF, and a CR takes the character behind it along.
    QString lineEnd;

    bool operator==(const Delimiters&) const = default;
};

[[nodiscard]] Delimiters PresetDelimiters();
/// Why no file can be read or written with them; nothing where one can.
[[nodiscard]] std::optional<Text> ObjectionTo(const Delimiters& delimiters);

/// A delimiter that is offered.
struct DelimiterChoice {
    Text delimiter;
    Text name = delimiter;  ///< what is shown of one that can't be seen
};
[[nodiscard]] std::span<const DelimiterChoice> QualifierChoices();
[[nodiscard]] std::span<const DelimiterChoice> SeparatorChoices();
[[nodiscard]] std::span<const DelimiterChoice> LineEndChoices();
/// The delimiter that a user means by what he enters: a name, or the first character.
[[nodiscard]] QString DelimiterEntered(const QString& entry);
[[nodiscard]] QString ShownDelimiter(const QString& delimiter);

/// What a line looks like with them.
[[nodiscard]] QString SampleOf(const Delimiters& delimiters);
