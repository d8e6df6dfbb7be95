#include "platform/host/SystemTime.h"

timespec SystemTime() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now;
}
