// Loads a document, does random operations on it, saves it and loads it again, all beside a plain reference.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "support/ini_script.h"

namespace {

// What a long file shows, a short one shows too, in a hundredth of the time.
constexpr std::size_t kLongestInput = 768;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PlayIniScript({reinterpret_cast<const char*>(data), std::min(size, kLongestInput)});
    return 0;
}
