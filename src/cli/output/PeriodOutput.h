#pragma once

class CJsonText;
class PeriodFilter;
struct PeriodContext;

/// Whether a period has a first and a last day. Preset 20 has none: a filter with it lets today pass, as a
/// date that can't be read is taken for today.
[[nodiscard]] bool SetsDays(const PeriodFilter& period);
/// The period of a filter as a JSON object, null when it has none. Start and end are null where the period
/// sets no days.
void WritePeriodOf(CJsonText& json, const PeriodFilter& filter, const PeriodContext& context);
