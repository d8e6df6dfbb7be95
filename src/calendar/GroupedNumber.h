#pragma once

#include "platform/host/CRegionalInfo.h"

#include <QString>

/// A number for people: precision decimal places, the digits before them in groups of three. 1234567.5 at 2
/// gives "1,234,567.50".
[[nodiscard]] QString GroupedNumber(const CRegionalInfo& region, double value, int precision);
