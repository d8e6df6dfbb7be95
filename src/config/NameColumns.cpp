#include "config/NameColumns.h"

#include "config/CCfgStore.h"

/// Both are named, whatever becomes of the first.
bool NameColumns(CCfgStore& settings) {
    const bool isListNamed = settings.ListColumns().ApplyCaptions(settings);
    const bool isTreeNamed = settings.TreeColumns().ApplyCaptions(settings);
    return isListNamed && isTreeNamed;
}
