#pragma once

#include "cli/arguments/OptionRow.h"
#include "cli/output/Console.h"
#include "exchange/text/Delimiters.h"

#include <QByteArray>
#include <optional>
#include <span>

class CArguments;

/// --qualifier, --separator, --terminator, --encoding.
[[nodiscard]] std::span<const OptionRow> TextFileOptions();

struct TextFileChoice {
    Delimiters delimiters;
    QByteArray encoding;  ///< empty: none was chosen
};
/// Nothing, after telling, for what is no delimiter or no encoding.
[[nodiscard]] std::optional<TextFileChoice> ReadTextFileChoice(const CArguments& arguments, Console& console);
