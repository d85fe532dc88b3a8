#include "platform/invalid_argument.h"

namespace platform {

namespace {
InvalidArgumentThrower g_thrower = nullptr;
}

InvalidArgumentThrower SetInvalidArgumentThrower(InvalidArgumentThrower thrower) {
    InvalidArgumentThrower previous = g_thrower;
    g_thrower = thrower;
    return previous;
}

void ThrowInvalidArgument() {
    if (g_thrower) g_thrower();
    throw InvalidArgument();
}

}  // namespace platform
