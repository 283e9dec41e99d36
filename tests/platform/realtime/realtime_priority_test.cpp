#include "platform/realtime/realtime_priority.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>

#include "platform/alsa/alsa_output.h"
#include "platform/output/null_output.h"
#include "platform/output_test_server.h"
#include "platform/pulse/pulse_output.h"
#include "platform/realtime/real_step_clock.h"

namespace tandem {
namespace {

int policy_of_this_thread() { return sched_getscheduler(0); }

bool is_granted_here() {
  bool granted = false;
  std::thread([&] { granted = ask_realtime_priority(); }).join();
  return granted;
}

int realtime_threads() {
  int count = 0;
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    const int policy = sched_getscheduler(std::stoi(task.path().filename().string()));
    if (policy == (SCHED_RR | SCHED_RESET_ON_FORK)) ++count;
  }
  return count;
}

TEST(RealtimePriority, IsGrantedAndNotInheritedOrChangesNothing) {
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
  EXPECT_EQ(policy, is_granted_here() ? SCHED_RR | SCHED_RESET_ON_FORK : SCHED_OTHER);
  EXPECT_EQ(others, SCHED_OTHER);
  EXPECT_EQ(policy_of_this_thread(), SCHED_OTHER);
}

template <class Output>
class EveryOutput : public testing::Test {};
using Outputs = testing::Types<PulseOutput, AlsaOutput, NullOutput>;
TYPED_TEST_SUITE(EveryOutput, Outputs);

TYPED_TEST(EveryOutput, HasOneRealTimeThreadAsLongAsItLives) {
  if (!is_granted_here()) GTEST_SKIP() << "real-time scheduling is refused here";
  const OutputTestServer server;  // not started: an output waits for its device
  OutputRing ring;
  {
    const TypeParam output(ring);
    EXPECT_TRUE(wait_until([] { return realtime_threads() == 1; }));
  }
  EXPECT_TRUE(wait_until([] { return realtime_threads() == 0; }));
}

}  // namespace
}  // namespace tandem
