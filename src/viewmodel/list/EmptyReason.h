#pragma once

#include <cstddef>

class ExpenseFilter;
class TimeFilter;

/// Why a list shows nothing.
enum class EmptyReason {
    NotEmpty,
    Loading,     ///< the records are being read
    Unreadable,  ///< they could not be read
    NoRecords,   ///< there are none at all
    InPeriod,    ///< none in the period shown
    Filtered,    ///< conditions besides the period leave none
    NotFound,    ///< none of those listed has the words looked for
    NotAnywhere  ///< no record has them
};

/// Whether a filter holds a condition besides the period.
[[nodiscard]] bool HasConditions(const TimeFilter& filter);
[[nodiscard]] bool HasConditions(const ExpenseFilter& filter);
/// What a list is made of.
struct ListedRecords {
    std::size_t listed = 0;  ///< rows shown
    std::size_t loaded = 0;  ///< records of the mode in all
    bool isLoading = false;
    bool isStoreDamaged = false;  ///< there may be more of them
    bool isNarrowed = false;      ///< the filter has conditions
    bool isSearched = false;      ///< words are looked for
    bool isEverywhere = false;    ///< whatever the filter says
};
[[nodiscard]] EmptyReason WhyEmpty(const ListedRecords& records);
