#pragma once

class CCfgStore;

/// Gives the columns of list and tree the names that their fields have at present. False before they know
/// any.
[[nodiscard]] bool NameColumns(CCfgStore& settings);
