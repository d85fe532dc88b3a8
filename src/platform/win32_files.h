// Files by the calls of Windows.
#pragma once

#include "platform/platform.h"

namespace platform {

class Win32Files : public Files {
  public:
    ErrorCode ReadBytes(const std::wstring& path, Sharing sharing, std::string& bytes) override;
    WriteResult WriteBytes(const std::wstring& path, std::string_view bytes) override;
    std::uint32_t GetAttributes(const std::wstring& path) override;
    ErrorCode SetAttributes(const std::wstring& path, std::uint32_t attributes) override;
    ErrorCode GetStatus(const std::wstring& path, FileStatus& status) override;
    std::vector<FoundEntry> Find(const std::wstring& pattern) override;
    ErrorCode Move(const std::wstring& from, const std::wstring& to) override;
    ErrorCode Copy(const std::wstring& from, const std::wstring& to, bool failIfExists) override;
    ErrorCode Remove(const std::wstring& path) override;
    ErrorCode MakeFolder(const std::wstring& path) override;
    ErrorCode RemoveFolder(const std::wstring& path) override;
};

}  // namespace platform
