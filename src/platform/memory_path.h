// Windows paths taken apart for the memory platform.
#pragma once

#include <string>
#include <vector>

#include "platform/platform.h"

namespace platform {

struct MemoryPath {
    std::wstring root;                // L"C:" or L"\\\\server\\share"; as the caller wrote it
    std::vector<std::wstring> names;  // the components below the root
    bool endsInBackslash = false;
    ErrorCode error = kDone;  // kInvalidName, or kPathNotFound for the empty path
};

// Slashes count as backslashes, "." and ".." are resolved, a relative path counts from C:\, and dots and
// blanks at the path's end fall off, as the system does it. Wildcards are allowed in the last name on
// request.
MemoryPath ParseMemoryPath(const std::wstring& path, bool allowWildcards = false);

}  // namespace platform
