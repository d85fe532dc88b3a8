// The contract tests run on every implementation of the platform that the program has: in memory everywhere,
// and on Windows also on the real one.
#pragma once

#include <string>

#include "support/test_platform.h"
#ifdef _WIN32
#include "platform/win32_platform.h"
#endif

class ContractTest : public testing::TestWithParam<SystemKind>, protected TestSystem {
  protected:
    ContractTest() : TestSystem(GetParam()) {}

    // All services of the implementation under test, also those that other tests have scripted.
    platform::Platform& GetServices() {
#ifdef _WIN32
        if (IsReal()) return platform::GetWin32Platform();
#endif
        return GetMemory().services;
    }

    platform::Files& GetFiles() {
        return GetServices().files;
    }
    platform::Registry& GetRegistry() {
        return GetServices().registry;
    }
};

inline auto GetImplementations() {
#ifdef _WIN32
    return testing::Values(SystemKind::kNative, SystemKind::kMemory);
#else
    return testing::Values(SystemKind::kMemory);
#endif
}

inline std::string GetImplementationName(const testing::TestParamInfo<SystemKind>& info) {
    return info.param == SystemKind::kMemory ? "Memory" : "Win32";
}

#define KV2D_CONTRACT_TESTS(fixture) \
    INSTANTIATE_TEST_SUITE_P(All, fixture, GetImplementations(), GetImplementationName)
