#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/pulse/pulse_output_fixture.h"

namespace tandem {
namespace {

std::string word_after(const std::filesystem::path& path, const std::string& key) {
  std::ifstream file(path);
  for (std::string word; file >> word;) {
    if (word == key && file >> word) return word;
  }
  return {};
}

// How often the thread of libpulse has gone to sleep so far; -1 if there is no such thread.
long sleeps_of_the_output() {
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    const auto status = task.path() / "status";
    if (word_after(status, "Name:") == "tandem-pulse") return std::stol(word_after(status, "voluntary_ctxt_switches:"));
  }
  return -1;
}

class PulseOutputLightTest : public PulseOutputFixture {
 protected:
  double wake_ups_a_second(int depth) {
    server_.start();
    OutputFeeder feeder(ring_, output_, kKeep * 4);
    output_.open(kBuffer);
    output_.set_queue_length(depth);
    output_.start();
    EXPECT_TRUE(played_further(44100));  // libpulse asks for the time more often at first
    const long before = sleeps_of_the_output();
    EXPECT_GT(before, 0);
    const Nanoseconds began = monotonic_now();
    EXPECT_TRUE(played_further(44100));
    const auto seconds = static_cast<double>(monotonic_now() - began) / 1e9;
    return static_cast<double>(sleeps_of_the_output() - before) / seconds;
  }
};

// The null sink plays in blocks of 50 ms; for each there is a request and a receipt for the memory it came in.
TEST_F(PulseOutputLightTest, ADeepQueueSleepsWell) {
  const double rate = wake_ups_a_second(19);
  RecordProperty("wake_ups_a_second", std::to_string(rate));
  EXPECT_LT(rate, 70.0);
}

// The queue is two buffers of 29 ms.
TEST_F(PulseOutputLightTest, AShortQueueDoesNotSpin) {
  const double rate = wake_ups_a_second(2);
  RecordProperty("wake_ups_a_second", std::to_string(rate));
  EXPECT_LT(rate, 250.0);
}

TEST_F(PulseOutputLightTest, AStarvedStreamDoesNotSpin) {
  server_.start();
  OutputFeeder feeder(ring_, output_, kKeep);
  output_.start();
  ASSERT_TRUE(played_further(kRequest));
  feeder.hold_back(true);
  ASSERT_TRUE(wait_until([&] { return ring_.readable() == 0 && output_.frames_played() == ring_.taken(); }));
  const long before = sleeps_of_the_output();
  const Nanoseconds began = monotonic_now();
  ASSERT_TRUE(wait_until([&] { return monotonic_now() - began > kNanosecondsPerSecond / 2; }));
  const auto seconds = static_cast<double>(monotonic_now() - began) / 1e9;
  EXPECT_LT(static_cast<double>(sleeps_of_the_output() - before) / seconds, 150.0);
}

}  // namespace
}  // namespace tandem
