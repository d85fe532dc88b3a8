// The main function of every test program: no system error boxes, a stack on a crash, and an end to a test
// case that hangs.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

#include "support/crash_report.h"

namespace {

using Seconds = std::chrono::seconds;
using SteadyTime = std::chrono::steady_clock::time_point;

// CTest ends the program after 120 seconds; the watchdog comes first, since it can tell which case hangs.
constexpr Seconds kLongestCase{100};
constexpr std::chrono::milliseconds kPollInterval{200};
constexpr int kHangStatus = 3;

// KV2D_TEST_SECONDS overrides the limit of a case; 0 takes it away, for a debugger.
Seconds GetLongestCase() {
    const char* text = std::getenv("KV2D_TEST_SECONDS");
    return text ? Seconds(std::atoi(text)) : kLongestCase;
}

// Ends the program when one case takes longer than the limit.
class Watchdog : public testing::EmptyTestEventListener {
  public:
    Watchdog() : m_limit(GetLongestCase()), m_thread([this] { Watch(); }) {}

    ~Watchdog() override {
        m_ends = true;
        m_thread.join();
    }

  private:
    void OnTestStart(const testing::TestInfo&) override { m_start = Now(); }
    void OnTestEnd(const testing::TestInfo&) override { m_start = 0; }

    static std::int64_t Now() { return std::chrono::steady_clock::now().time_since_epoch().count(); }

    void Watch() {
        while (!m_ends) {
            std::this_thread::sleep_for(kPollInterval);
            const std::int64_t start = m_start;
            const SteadyTime::duration taken(start == 0 ? 0 : Now() - start);
            if (m_limit == Seconds(0) || taken < m_limit) continue;
            std::fprintf(stderr, "The test case hangs: more than %d s. The program is ended.\n",
                         static_cast<int>(m_limit.count()));
            std::fflush(nullptr);
            std::_Exit(kHangStatus);
        }
    }

    const Seconds m_limit;
    std::atomic<std::int64_t> m_start = 0;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

}  // namespace

int main(int argc, char** argv) {
    InstallCrashReport();
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    return RUN_ALL_TESTS();
}
