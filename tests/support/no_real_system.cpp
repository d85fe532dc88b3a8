#include <cstdlib>

#include "support/real_system.h"

bool TestSystem::RealSystem::IsAvailable() {
    return false;
}

TestSystem::RealSystem::RealSystem() {
    std::abort();
}

TestSystem::RealSystem::~RealSystem() = default;

platform::Platform& TestSystem::RealSystem::GetServices() {
    std::abort();
}

bool TestSystem::RealSystem::SetModified(const std::wstring&, platform::FileTime) {
    std::abort();
}

std::function<void()> TestSystem::RealSystem::HoldFile(const std::wstring&, platform::Hold) {
    std::abort();
}

bool TestSystem::RealSystem::SetRegistryBytes(platform::Hive, const std::wstring&, const std::wstring&,
                                              platform::RegistryType, const std::string&) {
    std::abort();
}
