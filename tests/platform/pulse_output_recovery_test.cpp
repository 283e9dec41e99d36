#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "faults/measured.h"
#include "platform/pulse_output_fixture.h"

namespace tandem {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kBackWithin{2000};

std::ptrdiff_t entries_of(const char* directory) {
  const std::filesystem::directory_iterator entries(directory);
  return std::distance(begin(entries), end(entries));
}

long resident_kilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmRSS:") continue;
    long kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
  }
  return 0;
}

int restarts_wished() {
  const char* count = std::getenv("TANDEM_TEST_RESTARTS");
  return count != nullptr ? std::max(1, std::atoi(count)) : 5;
}

class PulseOutputRecoveryTest : public PulseOutputFixture {
 protected:
  void play() {
    server_.start();
    output_.set_depth(4);
    output_.start();
    ASSERT_TRUE(heard_further(kRequest));
  }
  bool silent() const {
    return wait_until([this] { return !output_.consuming(); });
  }

  // What begins, comes back or moves has run dry on the way, but not because its queue was too short.
  void expect_no_break() const {
    if (server_.waited_for_a_processor() < milliseconds(100)) {
      EXPECT_EQ(output_.breaks(), 0U);
    }
  }

  OutputFeeder feeder_{ring_, output_, kKeep};
};

TEST_F(PulseOutputRecoveryTest, AServerThatIsKilledAgainAndAgainIsFoundAgain) {
  play();
  std::ptrdiff_t descriptors = 0;
  std::ptrdiff_t threads = 0;
  long memory = 0;
  long slowest = 0;
  const int restarts = restarts_wished();
  for (int i = 0; i < restarts; ++i) {
    server_.kill_hard();
    ASSERT_TRUE(silent());
    EXPECT_EQ(output_.heard(), ring_.taken());
    server_.start();
    const Nanoseconds back = monotonic_now();
    ASSERT_TRUE(wait_until([&] { return output_.consuming(); }, kBackWithin)) << "restart " << i;
    slowest = std::max(slowest, static_cast<long>((monotonic_now() - back) / kNanosecondsPerMillisecond));
    ASSERT_TRUE(heard_further(kRequest));
    if (i == 0) {
      descriptors = entries_of("/proc/self/fd");
      threads = entries_of("/proc/self/task");
      memory = resident_kilobytes();
    }
  }
  EXPECT_EQ(entries_of("/proc/self/fd"), descriptors);
  EXPECT_EQ(entries_of("/proc/self/task"), threads);
  const long growth = resident_kilobytes() - memory;
  test::record_fault("sound server killed and started again, " + std::to_string(restarts) + " times",
                     "back within 2 s each time, no descriptor, thread or memory more",
                     "back within " + std::to_string(slowest) + " ms, " + std::to_string(growth) + " kB, " +
                         std::to_string(entries_of("/proc/self/fd") - descriptors) + " descriptors, " +
                         std::to_string(entries_of("/proc/self/task") - threads) + " threads more");
  EXPECT_LT(growth, 2048 + 20 * restarts);
}

TEST_F(PulseOutputRecoveryTest, NoServerAtStart) {
  output_.start();
  EXPECT_FALSE(output_.consuming());
  EXPECT_EQ(output_.heard(), 0U);
  server_.start();
  const Nanoseconds began = monotonic_now();
  EXPECT_TRUE(wait_until([&] { return output_.consuming(); }, kBackWithin));
  test::record_fault("no sound server at the start", "sound within 2 s of the server's start",
                     "after " + std::to_string((monotonic_now() - began) / kNanosecondsPerMillisecond) + " ms");
  EXPECT_TRUE(heard_further(kRequest));
}

TEST_F(PulseOutputRecoveryTest, TheLastSinkGoesAndComes) {
  play();
  server_.unload_sink("null0");
  ASSERT_TRUE(silent());
  EXPECT_EQ(output_.heard(), ring_.taken());
  server_.load_sink("null0");
  EXPECT_TRUE(wait_until([&] { return output_.consuming(); }, kBackWithin));
  EXPECT_TRUE(heard_further(kRequest));
}

TEST_F(PulseOutputRecoveryTest, FollowsToAnotherSinkAndSetsItsQueueAnew) {
  play();
  server_.load_sink("null1");
  server_.move_streams_to("null1");
  server_.unload_sink("null0");
  EXPECT_TRUE(heard_further(kRequest * 8));
  EXPECT_TRUE(output_.consuming());
  EXPECT_NEAR(output_.request_frames(), static_cast<double>(kRequest) / 8, 1);
  expect_no_break();
}

TEST_F(PulseOutputRecoveryTest, AServerThatHangsHoldsNobodyAndGoesOnAfterwards) {
  play();
  server_.freeze();
  const Nanoseconds began = monotonic_now();
  output_.set_depth(8);
  output_.pause();
  output_.restart();
  const Nanoseconds held = monotonic_now() - began;
  EXPECT_LT(held, 50 * kNanosecondsPerMillisecond);
  test::record_fault("sound server frozen while orders are given", "nobody waits for it",
                     "held for " + std::to_string(held / kNanosecondsPerMillisecond) + " ms");
  EXPECT_TRUE(wait_until([&] { return output_.heard() == ring_.taken(); }));
  const std::uint64_t stands = output_.heard();
  server_.thaw();
  EXPECT_TRUE(wait_until([&] { return output_.heard() > stands + 8 * kRequest; }));
}

TEST_F(PulseOutputRecoveryTest, AServerThatHangsDoesNotHoldTheEnd) {
  server_.start();
  server_.freeze();
  const Nanoseconds began = monotonic_now();
  {
    OutputRing ring;
    PulseOutput output(ring);
    output.start();
  }
  EXPECT_LT(monotonic_now() - began, kNanosecondsPerSecond);
}

TEST_F(PulseOutputRecoveryTest, ASuspendedSinkDoesNotConsume) {
  play();
  server_.suspend_sink("null0", true);
  ASSERT_TRUE(silent());
  server_.suspend_sink("null0", false);
  ASSERT_TRUE(consuming());
  EXPECT_TRUE(heard_further(kRequest * 4));
  expect_no_break();
}

TEST_F(PulseOutputRecoveryTest, WhatWasStoppedWithoutADeviceDoesNotComeBack) {
  play();
  server_.kill_hard();
  ASSERT_TRUE(silent());
  output_.stop();
  EXPECT_TRUE(wait_until([&] { return ring_.readable() == 0; }));
  EXPECT_EQ(output_.heard(), ring_.taken());
}

}  // namespace
}  // namespace tandem
