// Reading a file whole.
#pragma once

#include <cstddef>
#include <string>

namespace controls {

// False for a file that cannot be opened or that has more than `largest` bytes. Others may read and write it.
bool ReadFileBytes(const std::wstring& path, std::size_t largest, std::string& bytes);

}  // namespace controls
