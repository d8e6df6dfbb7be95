#pragma once

#include <cstddef>

class ExpenseFilter;
class TimeFilter;

/// Why a list shows nothing.
enum class EmptyReason {
    NotEmpty,
    Loading,    ///< the records are being read
    NoRecords,  ///< there are none at all
    InPeriod,   ///< none in the period shown
    Filtered    ///< conditions besides the period leave none
};

/// Whether a filter holds a condition besides the period.
[[nodiscard]] bool HasConditions(const TimeFilter& filter);
[[nodiscard]] bool HasConditions(const ExpenseFilter& filter);
/// listed: rows shown; loaded: records of the mode in all; narrowed: whether the filter has conditions.
[[nodiscard]] EmptyReason WhyEmpty(std::size_t listed, std::size_t loaded, bool loading, bool narrowed);
