// A library whose span format takes a text where the program gives a number.
#include "lang/TextRow.h"

extern "C" __attribute__((visibility("default"))) const TextRow* LanguageTexts(int* count) {
    static const TextRow kTexts[] = {{21172, "SpanClock", "%d:%s"}};
    *count = 1;
    return kTexts;
}
