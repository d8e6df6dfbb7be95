#include "platform/host/ErrorText.h"

#include <cstring>

QString ErrorText(int code) {
    // Unlike strerror this one is never translated, so a message is in one language.
    const char* text = code == 0 ? nullptr : ::strerrordesc_np(code);
    return text == nullptr ? QString() : QString::fromUtf8(text);
}
