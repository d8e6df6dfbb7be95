#pragma once

class CVelmarchApp;

/// What a report makes of loaded records: order, groups, page; each with a floor over the same memory. Prints
/// "name value", a line each.
void MeasureReports(CVelmarchApp& app);
