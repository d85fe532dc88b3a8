// The part of a test's system that is real on Windows: a temporary folder and a registry branch. Elsewhere it
// does not exist, and IsAvailable says so.
#pragma once

#include <functional>
#include <string>

#include "support/test_platform.h"

struct TestSystem::RealSystem {
    static bool IsAvailable();

    RealSystem();
    ~RealSystem();

    const std::wstring& GetRoot() const { return m_root; }
    platform::Platform& GetServices();
    bool SetModified(const std::wstring& path, platform::FileTime modified);
    // Opens the file; the result closes it.
    std::function<void()> HoldFile(const std::wstring& path, platform::Hold hold);
    bool SetRegistryBytes(platform::Hive hive, const std::wstring& key, const std::wstring& name,
                          platform::RegistryType type, const std::string& bytes);

  private:
    std::wstring m_root;
    std::wstring m_branch;
};
