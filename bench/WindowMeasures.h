#pragma once

struct WindowHome;

// What a user of the window waits for, from the key or click to the end of the painting, in processor time;
// each with its floor. Prints "name value", a line each.

/// Pages of scrolling, and the memory that a row of the list takes.
void MeasureList(WindowHome& home);
/// Clicks on the headers of two columns.
void MeasureSorting(WindowHome& home);
/// Groups of days on; the floor is the same list without them.
void MeasureGroups(WindowHome& home);
/// A key while words are looked for in the list.
void MeasureFind(WindowHome& home);
/// A second with 1,000 running timers.
void MeasureTick(WindowHome& home);
/// A record with other notes. The floor is the document's change of it, without a notice.
void MeasureChange(WindowHome& home);
/// To the expenses and back. The floor takes the window away.
void MeasureSwitch(WindowHome& home);
