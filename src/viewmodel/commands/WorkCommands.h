#pragma once

#include "viewmodel/commands/CommandRowMaker.h"

/// The commands of the work bar: part of the command table, behind those of the list's timers.
namespace WorkRows {

using State = CommandState;
using Row = CommandRowMaker;

inline bool OneTimeSelected(const State& s) {
    return s.timeMode && s.selected == 1;
}
/// Whatever is shown: the bar has the timers of time records also beside a list of expenses.
inline bool AtWork(const State& s) {
    return s.anyTimer;
}

inline constexpr CommandRow kRows[] = {
    Row(Command::kWorkLine, "CmdWorkLine",
        {Text::CmdWorkLine, Text::TipWorkLine, "chronometer-start", "Ctrl+J"}, Menu::Timer, {Run::WorkLine})
        .BeginsGroup(),
    Row(Command::kWorkRecent, "CmdWorkRecent",
        {Text::CmdWorkRecent, Text::TipWorkRecent, "document-open-recent", "Ctrl+Shift+J"}, Menu::Timer,
        {Run::WorkRecent}),
    Row(Command::kContinue, "CmdContinue",
        {Text::CmdContinue, Text::TipContinue, "media-skip-forward", "Ctrl+G"}, Menu::Timer, {Run::Continue})
        .When(OneTimeSelected),
    Row(Command::kWorkPause, "CmdWorkPause",
        {Text::CmdWorkPause, Text::TipWorkPause, "media-playback-pause", "Ctrl+F8"}, Menu::Timer,
        {Run::WorkPause})
        .BeginsGroup()
        .When(AtWork),
    Row(Command::kWorkStop, "CmdWorkStop",
        {Text::CmdWorkStop, Text::TipWorkStop, "media-playback-stop", "Ctrl+F9"}, Menu::Timer,
        {Run::WorkStop})
        .When(AtWork),
    Row(Command::kWorkOpen, "CmdWorkOpen", {Text::CmdWorkOpen, Text::TipWorkOpen, "document-edit", "Ctrl+F2"},
        Menu::Timer, {Run::WorkOpen})
        .When(AtWork),
};

}  // namespace WorkRows
