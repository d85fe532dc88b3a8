// The registry by the calls of Windows.
#pragma once

#include "platform/platform.h"

namespace platform {

class Win32Registry : public Registry {
  public:
    bool ReadDword(Hive hive, const std::wstring& key, const std::wstring& name,
                   std::uint32_t& value) override;
    bool ReadString(Hive hive, const std::wstring& key, const std::wstring& name,
                    std::wstring& text) override;
    bool WriteDword(Hive hive, const std::wstring& key, const std::wstring& name,
                    std::uint32_t value) override;
    bool WriteString(Hive hive, const std::wstring& key, const std::wstring& name,
                     const std::wstring& text) override;
    bool DeleteValue(Hive hive, const std::wstring& key, const std::wstring& name) override;
    bool DeleteEmptyKey(Hive hive, const std::wstring& key) override;
    bool DeleteTree(Hive hive, const std::wstring& key) override;
    std::vector<std::wstring> GetSubkeys(Hive hive, const std::wstring& key) override;
};

}  // namespace platform
