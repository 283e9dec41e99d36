#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include "faults/measured.h"
#include "platform/pulse/pulse_output_fixture.h"

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

int repetitions() {
  const char* count = std::getenv("TANDEM_TEST_RESTARTS");
  return count != nullptr ? std::max(1, std::atoi(count)) : 5;
}

// What this process holds more than when it was made.
class Growth {
 public:
  void expect_none(int times) const {
    EXPECT_EQ(descriptors(), 0);
    EXPECT_EQ(threads(), 0);
    EXPECT_LT(kilobytes(), 2048 + 20 * times);
  }
  std::string text() const {
    return std::to_string(kilobytes()) + " kB, " + std::to_string(descriptors()) + " descriptors, " +
           std::to_string(threads()) + " threads more";
  }

 private:
  std::ptrdiff_t descriptors() const { return entries_of("/proc/self/fd") - descriptors_; }
  std::ptrdiff_t threads() const { return entries_of("/proc/self/task") - threads_; }
  long kilobytes() const { return resident_kilobytes() - kilobytes_; }

  std::ptrdiff_t descriptors_ = entries_of("/proc/self/fd");
  std::ptrdiff_t threads_ = entries_of("/proc/self/task");
  long kilobytes_ = resident_kilobytes();
};

class PulseOutputRecoveryTest : public PulseOutputFixture {
 protected:
  void play() {
    server_.start();
    output_.set_queue_length(4);
    output_.start();
    ASSERT_TRUE(played_further(kRequest));
  }
  bool silent() const {
    return wait_until([this] { return !output_.consuming(); });
  }

  // What begins, comes back or moves has run dry on the way, but not because its queue was too short.
  void expect_no_break() const {
    if (server_.waited_for_a_processor() < milliseconds(100)) {
      EXPECT_EQ(output_.underruns(), 0U);
    }
  }

  // Time after time the device goes and comes back: the sound does in time, and nothing is left of the times before.
  void expect_back_each_time(const std::string& fault, const std::function<void()>& go,
                             const std::function<void()>& come) {
    std::optional<Growth> growth;
    Nanoseconds slowest = 0;
    for (int i = 0; i < repetitions(); ++i) {
      go();
      const Nanoseconds back = monotonic_now();
      come();
      const std::uint64_t stood = output_.frames_played();
      ASSERT_TRUE(wait_until([&] { return output_.consuming() && output_.frames_played() > stood; }, kBackWithin)) << i;
      slowest = std::max(slowest, monotonic_now() - back);
      ASSERT_TRUE(played_further(kRequest));
      if (!growth) growth.emplace();
    }
    growth->expect_none(repetitions());
    test::record_fault(fault + ", " + std::to_string(repetitions()) + " times",
                       "heard again within 2 s each time, no descriptor, thread or memory more",
                       "within " + std::to_string(slowest / kNanosecondsPerMillisecond) + " ms, " + growth->text());
  }
  void expect_silent_and_all_heard() const {
    EXPECT_TRUE(silent());
    EXPECT_EQ(output_.frames_played(), ring_.taken());
  }

  OutputFeeder feeder_{ring_, output_, kKeep};
};

TEST_F(PulseOutputRecoveryTest, AServerThatIsKilledAgainAndAgainIsFoundAgain) {
  play();
  const auto go = [this] {
    server_.kill_hard();
    expect_silent_and_all_heard();
  };
  expect_back_each_time("sound server killed and started again", go, [this] { server_.start(); });
}

TEST_F(PulseOutputRecoveryTest, PlaysOnceThereIsAServer) {
  output_.start();
  EXPECT_FALSE(output_.consuming());
  EXPECT_EQ(output_.frames_played(), 0U);
  server_.start();
  const Nanoseconds began = monotonic_now();
  EXPECT_TRUE(wait_until([&] { return output_.consuming(); }, kBackWithin));
  test::record_fault("no sound server at the start", "sound within 2 s of the server's start",
                     "after " + std::to_string((monotonic_now() - began) / kNanosecondsPerMillisecond) + " ms");
  EXPECT_TRUE(played_further(kRequest));
}

TEST_F(PulseOutputRecoveryTest, TheLastSinkGoesAndComes) {
  play();
  const auto go = [this] {
    server_.unload_sink("null0");
    expect_silent_and_all_heard();
  };
  expect_back_each_time("last sink removed and added", go, [this] { server_.load_sink("null0"); });
}

TEST_F(PulseOutputRecoveryTest, AServerStandsStillAndGoesOn) {
  play();
  const auto go = [this] {
    server_.freeze();
    EXPECT_TRUE(wait_until([this] { return ring_.taken() - output_.frames_played() < kRequest; }))
        << "it plays what it has";
  };
  expect_back_each_time("sound server stopped and continued", go, [this] { server_.thaw(); });
}

TEST_F(PulseOutputRecoveryTest, TheDefaultGoesToAndFro) {
  play();
  server_.load_sink("null1");
  const auto to_and_fro = [this, there = false]() mutable {
    there = !there;
    server_.move_streams_to(there ? "null1" : "null0");
  };
  expect_back_each_time(
      "default sink changed", [] {}, to_and_fro);
}

TEST_F(PulseOutputRecoveryTest, FollowsToAnotherSinkAndSetsItsQueueAgain) {
  play();
  server_.load_sink("null1");
  server_.move_streams_to("null1");
  server_.unload_sink("null0");
  EXPECT_TRUE(played_further(kRequest * 8));
  EXPECT_TRUE(output_.consuming());
  EXPECT_NEAR(output_.request_frames(), static_cast<double>(kRequest) / 8, 1);
  expect_no_break();
}

TEST_F(PulseOutputRecoveryTest, AServerThatHangsBlocksNoThreadAndGoesOnAfterwards) {
  play();
  server_.freeze();
  const Nanoseconds began = monotonic_now();
  output_.set_queue_length(8);
  output_.pause();
  output_.restart();
  const Nanoseconds held = monotonic_now() - began;
  EXPECT_LT(held, 50 * kNanosecondsPerMillisecond);
  test::record_fault("sound server frozen while commands are sent", "no call waits for it",
                     "held for " + std::to_string(held / kNanosecondsPerMillisecond) + " ms");
  EXPECT_TRUE(wait_until([&] { return output_.frames_played() == ring_.taken(); }));
  const std::uint64_t stands = output_.frames_played();
  server_.thaw();
  EXPECT_TRUE(wait_until([&] { return output_.frames_played() > stands + 8 * kRequest; }));
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
  EXPECT_TRUE(played_further(kRequest * 4));
  expect_no_break();
}

TEST_F(PulseOutputRecoveryTest, WhatWasStoppedWithoutADeviceDoesNotComeBack) {
  play();
  server_.kill_hard();
  ASSERT_TRUE(silent());
  output_.stop();
  EXPECT_TRUE(wait_until([&] { return ring_.readable() == 0; }));
  EXPECT_EQ(output_.frames_played(), ring_.taken());
}

}  // namespace
}  // namespace tandem
