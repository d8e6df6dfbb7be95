#pragma once

/// What became of a pad after a command.
enum class PadState {
    Open,       ///< it goes on
    Accepted,   ///< closed; the scratch record holds the choice, or none
    Cancelled,  ///< closed, nothing chosen
};

/// The commands that every pad has.
inline constexpr int kPadAccept = 1, kPadCancel = 2;
