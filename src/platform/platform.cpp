#include "platform/platform.h"

#include <cstdlib>

namespace platform {

Platform* g_platform = nullptr;

void FailWithoutPlatform() {
    std::abort();
}

Platform* Install(Platform* platform) {
    Platform* previous = g_platform;
    g_platform = platform;
    return previous;
}

}  // namespace platform
