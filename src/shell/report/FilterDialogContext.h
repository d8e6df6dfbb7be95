#pragma once

#include "calendar/PeriodFilter.h"

class CCfgStore;
class CClock;
class CPrompt;
class CPulldownCatalogue;

/// What the filter dialogs need from outside. All must outlive them.
struct FilterDialogContext {
    CCfgStore& settings;
    const CPulldownCatalogue& catalogue;
    CPrompt& prompt;
    const CClock& clock;
    PeriodContext period;
};
