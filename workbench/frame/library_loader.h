// Loads modules with the system's loader.
#pragma once

#include "host/applications.h"

namespace frame {

class SystemLibraryLoader : public workbench::host::LibraryLoader {
  public:
    bool Load(const std::wstring& path, workbench::host::Library& library, std::wstring& error) override;
    void Free(const workbench::host::Library& library) override;
};

}  // namespace frame
