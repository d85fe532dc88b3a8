// Loads a document, does random operations on it, saves it and loads it again, all beside a plain reference.
#include <cstddef>
#include <cstdint>

#include "support/ini_script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PlayIniScript({reinterpret_cast<const char*>(data), size});
    return 0;
}
