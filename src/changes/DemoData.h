#pragma once

#include <cstdint>
#include <functional>

class CClock;
class CVelmarchDoc;

/// How many made-up records of each kind.
struct DemoCounts {
    int times = 0;
    int expenses = 0;
};

/// A number of records of both kinds shared out: every tenth is an expense. 25: 23 times, 2 expenses.
[[nodiscard]] DemoCounts ShareOut(int records);

/// How filling ended. Failures of the store have been told to the user.
enum class [[nodiscard]] DemoOutcome{Filled, NotEmpty, Failed};

/// Fills an empty store with plausible records in ascending order of days, ending today, and with the items
/// that they use in their pulldown lists. Five or so a day, over at most 30 years: beyond that, the days fill
/// up. The same seed gives the same records, apart from identities and today's date. All of it is written or
/// nothing; progress, when given, hears now and then how many records there are.
[[nodiscard]] DemoOutcome FillWithDemoData(CVelmarchDoc& document, const CClock& clock,
                                           const DemoCounts& counts, std::uint32_t seed,
                                           const std::function<void(int written)>& progress = {});
