#pragma once

class CVelmarchApp;

/// What the window makes of loaded records before anything is drawn: sums, tree, order of the list; each with
/// a floor over the same memory. Prints "name value", a line each.
void MeasureViews(CVelmarchApp& app);
