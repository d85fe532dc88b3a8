// Reading a file, whole or its beginning.
#pragma once

#include <cstddef>
#include <string>

namespace controls {

// False for a file that cannot be opened or that has more than `largest` bytes. Others may read and write it.
bool ReadFileBytes(const std::wstring& path, std::size_t largest, std::string& bytes);

// The first `most` bytes of a file; `isWhole` if it has no more. False for a file that cannot be opened or
// read.
bool ReadFileStart(const std::wstring& path, std::size_t most, std::string& bytes, bool& isWhole);

}  // namespace controls
