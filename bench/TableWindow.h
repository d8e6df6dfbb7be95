#pragma once

struct Places;

/// What is remembered of the window at a size for the next size.
struct WindowTimes {
    double tickLines = 0, tickColumns = 0;
};

/// The lines of what a user of the window waits for, over a home of that size; the home has expenses
/// afterwards. former: the same of a smaller home, or zeroes. starts: of each program.
[[nodiscard]] WindowTimes WindowLines(const Places& places, int size, const WindowTimes& former, int starts);
