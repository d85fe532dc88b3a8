// The main function of every test program: no system error boxes, a stack on a crash, and an end to a test
// case that hangs.
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <thread>

#include "support/crash_report.h"

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::seconds;

// CTest ends the program after 300 seconds; the watchdog comes first, since it can tell which case hangs.
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
        {
            const std::lock_guard lock(m_mutex);
            m_ends = true;
        }
        // At once: most of CTest's tests are a process of one case, which would wait for half an interval
        // each.
        m_ending.notify_one();
        m_thread.join();
    }

  private:
    void OnTestStart(const testing::TestInfo&) override { SetStart(Clock::now()); }
    void OnTestEnd(const testing::TestInfo&) override { SetStart(std::nullopt); }

    void SetStart(std::optional<Clock::time_point> start) {
        const std::lock_guard lock(m_mutex);
        m_start = start;
    }

    void Watch() {
        std::unique_lock lock(m_mutex);
        while (!m_ending.wait_for(lock, kPollInterval, [this] { return m_ends; })) {
            if (m_limit == Seconds(0) || !m_start || Clock::now() - *m_start < m_limit) continue;
            std::fprintf(stderr, "The test case hangs: more than %d s. The program is ended.\n",
                         static_cast<int>(m_limit.count()));
            std::fflush(nullptr);
            std::_Exit(kHangStatus);
        }
    }

    const Seconds m_limit;
    std::mutex m_mutex;
    std::condition_variable m_ending;
    std::optional<Clock::time_point> m_start;  // of the case that runs
    bool m_ends = false;
    std::thread m_thread;
};

}  // namespace

int main(int argc, char** argv) {
    InstallCrashReport();
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    return RUN_ALL_TESTS();
}
