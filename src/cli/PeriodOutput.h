#pragma once

class CJsonText;
class PeriodFilter;
struct PeriodSurroundings;

/// The period of a filter as a JSON object, null when it has none. Start and end are null where the period
/// sets no days.
void WritePeriodOf(CJsonText& json, const PeriodFilter& filter, const PeriodSurroundings& around);
