#pragma once

#include "lang/Text.h"

class CPrompt;

/// What becomes of what was entered in a dialog that is left without saving.
enum class Leave { Save, Discard, Stay };

/// Asks; question: one of the texts AskLeaveNew, AskLeaveTimer, AskLeaveChanged, AskLeaveStopped and
/// AskLeaveDefault. Whatever isn't an answer leaves the user in the dialog.
[[nodiscard]] Leave AskLeave(Text question, CPrompt& prompt);
