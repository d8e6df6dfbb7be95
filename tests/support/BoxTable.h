#pragma once

#include "lang/Text.h"
#include "platform/host/CPrompt.h"

#include <optional>
#include <span>

/// How a message or question has to look, beside its text. Stated here once for all tests; a text that
/// comes under several titles has a row for each.
struct BoxRow {
    Text text;
    Text title;
    BoxIcon icon = BoxIcon::Warning;
    Buttons buttons = Buttons::Ok;
    Answer defaultAnswer = Answer::Ok;
    std::optional<Text> action = {};  ///< the verb on the button that says yes
};

/// All rows, grouped by text.
[[nodiscard]] std::span<const BoxRow> BoxTable();
/// The rows of a text, none for a text that no box is known to show.
[[nodiscard]] std::span<const BoxRow> BoxesOf(int textId);
