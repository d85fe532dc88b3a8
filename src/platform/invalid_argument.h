// The one failure that the portable layers raise as an exception: the framework's invalid-argument failure.
// They may not include the framework, so whoever owns it installs a function that throws the framework's own
// type.
#pragma once

#include <exception>

namespace platform {

// What ThrowInvalidArgument throws while no thrower is installed, as in tests of the portable layers.
class InvalidArgument : public std::exception {
  public:
    const char* what() const noexcept override { return "An invalid argument was encountered."; }
};

using InvalidArgumentThrower = void (*)();

// Installs a function that throws the framework's exception (the shell does so when the module is attached)
// and returns the previous one. Null goes back to InvalidArgument.
InvalidArgumentThrower SetInvalidArgumentThrower(InvalidArgumentThrower thrower);

// Throws what the installed function throws; InvalidArgument if there is none, or if it returns. Nothing
// below the window procedures catches it.
[[noreturn]] void ThrowInvalidArgument();

}  // namespace platform
