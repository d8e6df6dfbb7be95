#pragma once

#include <cstddef>

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
/// listed: rows shown; loaded: records of the mode in all.
[[nodiscard]] EmptyReason WhyEmpty(std::size_t listed, std::size_t loaded, bool loading,
                                   const TimeFilter& filter);
