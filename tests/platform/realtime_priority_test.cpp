#include "platform/realtime_priority.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

#include <thread>

#include "platform/real_step_clock.h"

namespace tandem {
namespace {

int policy_of_this_thread() { return sched_getscheduler(0); }

TEST(RealtimePriority, IsGrantedAndNotHandedOnOrChangesNothing) {
  bool granted = false;
  int policy = -1;
  std::thread([&] {
    granted = ask_realtime_priority();
    policy = policy_of_this_thread();
  }).join();
  EXPECT_EQ(policy, granted ? SCHED_RR | SCHED_RESET_ON_FORK : SCHED_OTHER);
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_RTPRIO, &limit), 0);
  if (geteuid() != 0 && limit.rlim_cur == 0) {
    EXPECT_FALSE(granted);
  }
}

TEST(RealtimePriority, TheRenderThreadsClockAsksForItsOwnThreadOnly) {
  int policy = -1;
  int others = -1;
  RealStepClock clock;
  std::thread([&] {
    clock.now_ns();
    policy = policy_of_this_thread();
    std::thread([&] { others = policy_of_this_thread(); }).join();
  }).join();
  bool granted = false;
  std::thread([&] { granted = ask_realtime_priority(); }).join();
  EXPECT_EQ(policy, granted ? SCHED_RR | SCHED_RESET_ON_FORK : SCHED_OTHER);
  EXPECT_EQ(others, SCHED_OTHER);
  EXPECT_EQ(policy_of_this_thread(), SCHED_OTHER);
}

}  // namespace
}  // namespace tandem
