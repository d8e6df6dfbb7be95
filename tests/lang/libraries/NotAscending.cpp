// A library whose numbers don't ascend, so that texts wouldn't be found.
#include "lang/TextRow.h"

extern "C" __attribute__((visibility("default"))) const TextRow* LanguageTexts(int* count) {
    static const TextRow kTexts[] = {{25441, "Monday", "Monday"}, {25440, "Sunday", "Sunday"}};
    *count = 2;
    return kTexts;
}
