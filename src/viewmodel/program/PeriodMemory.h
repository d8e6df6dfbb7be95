#pragma once

#include "calendar/PeriodFilter.h"

class CProfile;

/// Keeps the period of the list from one start to the next: a token, and the dates where it has some. What is
/// kept already isn't written again.
void StorePeriod(CProfile& profile, const PeriodFilter& filter);

/// Puts the stored period into a filter. Without one, or with an unknown token, it is this month; a day or a
/// range that has lost a date is today.
void RestorePeriod(const CProfile& profile, PeriodFilter& filter, const PeriodContext& context);
