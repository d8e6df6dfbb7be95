#pragma once

/// The sheet that printers are filled with.
enum class Paper { A4, Letter };

/// By the region of the user's session (environment variables LC_ALL, LC_PAPER, LANG): Letter in the Americas
/// where it is the custom and in the Philippines, A4 everywhere else and where the region isn't known.
[[nodiscard]] Paper PaperOfRegion();
