#include "platform/realtime/realtime_guard.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <future>
#include <thread>

#include "platform/realtime/monotonic_clock.h"
#include "platform/realtime/realtime_priority.h"
#include "platform/realtime/realtime_threads.h"

namespace tandem {
namespace {

bool is_realtime(pid_t thread) { return sched_getscheduler(thread) == (SCHED_RR | SCHED_RESET_ON_FORK); }

// Asks the clock all the time, which is no wait, until it has lost its scheduling or two seconds have gone by.
bool run_away() {
  const Nanoseconds began = monotonic_now();
  while (is_realtime(0))
    if (monotonic_now() - began > 2 * kNanosecondsPerSecond) return false;
  return true;
}

class RealtimeGuard : public testing::Test {
 protected:
  void SetUp() override {
    getrlimit(RLIMIT_RTTIME, &before_);
    bool granted = false;
    std::thread([&] { granted = ask_realtime_priority(); }).join();
    if (!granted) GTEST_SKIP() << "real-time scheduling is refused here";
  }
  void TearDown() override { setrlimit(RLIMIT_RTTIME, &before_); }

  rlimit before_{};
};

TEST_F(RealtimeGuard, AThreadThatRunsAwayLosesItsSchedulingAndNothingElseHappens) {
  bool lost = false;
  std::thread([&] {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
    ASSERT_TRUE(ask_realtime_priority());
    lost = run_away();
  }).join();
  EXPECT_TRUE(lost);
}

TEST_F(RealtimeGuard, EveryThreadThatAskedLosesItWithIt) {
  ASSERT_TRUE(limit_realtime_runs(200'000));
  std::promise<pid_t> number;
  std::promise<void> end;
  std::thread waiting([&] {
    EXPECT_TRUE(ask_realtime_priority());
    number.set_value(gettid());
    end.get_future().wait();
  });
  const pid_t other = number.get_future().get();
  EXPECT_TRUE(is_realtime(other));
  bool lost = false;
  std::thread([&] { lost = ask_realtime_priority() && run_away(); }).join();
  EXPECT_TRUE(lost);
  EXPECT_EQ(sched_getscheduler(other) & ~SCHED_RESET_ON_FORK, SCHED_OTHER);
  end.set_value();
  waiting.join();
}

TEST_F(RealtimeGuard, AThreadThatWaitsNowAndThenKeepsIt) {
  bool kept = false;
  std::thread([&] {
    ASSERT_TRUE(ask_realtime_priority());
    for (int i = 0; i < 12; ++i) {  // 240 ms of work
      for (const Nanoseconds began = monotonic_now(); monotonic_now() - began < 20 * kNanosecondsPerMillisecond;) {
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    kept = is_realtime(0);
  }).join();
  EXPECT_TRUE(kept);
}

TEST(RealtimeThreads, TheTableIsForTheLiving) {
  pid_t last = 0;
  for (std::size_t i = 0; i < 3 * kMostRealtimeThreads; ++i) {
    std::thread([&last] { remember_realtime_thread(last = gettid(), true); }).join();
    while (tgkill(getpid(), last, 0) == 0) std::this_thread::yield();  // the kernel is slower than join()
  }
  EXPECT_EQ(take_refused_threads().count, 0U);
  std::thread([] {
    remember_realtime_thread(gettid(), true);
    const ThreadNumbers refused = take_refused_threads();
    ASSERT_EQ(refused.count, 1U);
    EXPECT_EQ(refused.numbers[0], gettid());
    EXPECT_EQ(take_refused_threads().count, 0U) << "reported once";
  }).join();
}

}  // namespace
}  // namespace tandem
