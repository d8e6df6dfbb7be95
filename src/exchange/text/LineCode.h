#pragma once

#include <QString>

/// What became of a line of a text file. The numbers are fixed: scripts read them.
enum class LineCode : int {
    Parsed = 0,
    NoSeparator = 2,    ///< something else than a separator follows a field between qualifiers
    TooManyFields = 3,  ///< of a list item
    TooLong = 4,
    TooFewFields = 6,
    BadDate = 7,
    UnknownList = 20,
};

/// Why a line was refused. One that was read (Parsed), and refused all the same, can't be stored.
[[nodiscard]] QString TextOf(LineCode code);

/// A line that isn't imported.
struct RefusedLine {
    static constexpr qsizetype kShown = 30;  ///< so much of a line is shown

    int number;    ///< of the line in its file, from 1
    QString line;  ///< its beginning
    LineCode code;
};
