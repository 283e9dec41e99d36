#include "platform/alsa/alsa_output.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "platform/device_output.h"
#include "platform/output_feeder.h"
#include "platform/output_test_server.h"

namespace tandem {
namespace {

constexpr int kBuffer = 5120;
constexpr std::uint64_t kRequest = kBuffer / sizeof(Sample16);

// Three devices without hardware: one that has no clock, one that writes what it plays into a file, and one with a
// clock, which is the sound server seen through ALSA.
class AlsaOutputTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string folder = server_.directory().string();
    std::ofstream(folder + "/asound.conf")
        << "pcm.nowhere { type null }\n"
        << "pcm.written { type file slave.pcm nowhere format raw file \"" << folder << "/recording\" }\n"
        << "pcm.clocked { type pulse server \"unix:" << folder << "/socket\" }\n";
    ::setenv("ALSA_CONFIG_PATH", (folder + "/asound.conf").c_str(), 1);
  }

  OutputTestServer server_;
  OutputRing ring_;
};

TEST_F(AlsaOutputTest, EveryFrameReachesTheDeviceUnchanged) {
  AlsaOutput output(ring_, {"written"});
  OutputFeeder feeder(ring_, output, 2 * kRequest);
  output.open(kBuffer);
  output.start();
  ASSERT_TRUE(wait_until([&] { return output.frames_played() > 100000; }));
  output.close();
  ASSERT_TRUE(wait_until([&] { return !output.consuming() && output.frames_played() == ring_.taken(); }));
  ASSERT_TRUE(wait_until([&] { return server_.recording().size() >= ring_.taken(); }));
  const std::vector<Stretch> played = stretches_of(server_.recording());
  ASSERT_EQ(played.size(), 1U);
  EXPECT_EQ(played[0].first, 0U);
  EXPECT_EQ(played[0].frames, ring_.taken());
}

TEST_F(AlsaOutputTest, PauseHoldsAndRestartGoesOn) {
  AlsaOutput output(ring_, {"nowhere"});
  OutputFeeder feeder(ring_, output, 2 * kRequest);
  output.start();
  for (int i = 0; i < 5; ++i) {
    const std::uint64_t before = output.frames_played();
    ASSERT_TRUE(wait_until([&] { return output.frames_played() > before + 4 * kRequest; }));
    output.pause();
    ASSERT_TRUE(wait_until([&] { return !output.consuming() && output.frames_played() == ring_.taken(); }));
    output.restart();
  }
}

TEST_F(AlsaOutputTest, AMissingDeviceIsLookedForAgain) {
  AlsaOutput output(ring_, {"clocked"});
  OutputFeeder feeder(ring_, output, 2 * kRequest);
  output.start();
  EXPECT_FALSE(output.consuming());
  server_.start();
  EXPECT_TRUE(wait_until([&] { return output.frames_played() > 4 * kRequest; }));
}

TEST_F(AlsaOutputTest, AClockedDeviceIsFollowedAndFoundAgain) {
  server_.start();
  server_.start_recording();
  AlsaOutput output(ring_, {"clocked"});
  OutputFeeder feeder(ring_, output, 2 * kRequest);
  output.open(kBuffer);
  output.set_queue_length(8);
  output.start();
  ASSERT_TRUE(wait_until([&] { return output.frames_played() > 4 * kRequest; }));
  const Nanoseconds began = monotonic_now();
  const std::uint64_t from = output.frames_played();
  ASSERT_TRUE(wait_until([&] { return output.frames_played() >= from + 22050; }));
  EXPECT_GT(monotonic_now() - began, 450 * kNanosecondsPerMillisecond);
  output.pause();
  ASSERT_TRUE(wait_until([&] { return !output.consuming() && output.frames_played() == ring_.taken(); }));
  ASSERT_TRUE(wait_until([&] {
    const std::vector<Stretch> played = stretches_of(server_.recording());
    return played.size() == 1 && played[0].frames == ring_.taken();
  })) << "gaps, or the end is missing";
  output.restart();
  server_.kill_hard();
  ASSERT_TRUE(wait_until([&] { return !output.consuming(); }));
  server_.start();
  const std::uint64_t stood = output.frames_played();
  EXPECT_TRUE(wait_until([&] { return output.frames_played() > stood + 4 * kRequest; }));
}

TEST_F(AlsaOutputTest, TheServerIsPreferredAndAlsaStandsIn) {
  DeviceOutput output(ring_, "nowhere");
  OutputFeeder feeder(ring_, output, 2 * kRequest);
  output.start();
  ASSERT_TRUE(wait_until([&] { return output.frames_played() > 100 * kRequest; })) << "no server: ALSA";
  server_.start();
  const Nanoseconds deadline = monotonic_now() + 10 * kNanosecondsPerSecond;
  bool clocked = false;  // the device without a clock takes sound many times faster
  while (!clocked && monotonic_now() < deadline) {
    const std::uint64_t from = output.frames_played();
    const Nanoseconds began = monotonic_now();
    wait_until([&] { return output.frames_played() >= from + 4 * kRequest; });
    clocked = monotonic_now() - began > 80 * kNanosecondsPerMillisecond;
  }
  EXPECT_TRUE(clocked) << "the server came: it plays";
  server_.kill_hard();
  const std::uint64_t stood = output.frames_played();
  EXPECT_TRUE(wait_until([&] { return output.frames_played() > stood + 100 * kRequest; }))
      << "the server went: ALSA again";
}

TEST_F(AlsaOutputTest, WithoutAnyDeviceOrdersAreServedAndNothingConsumes) {
  DeviceOutput output(ring_, "not_there");
  output.start();
  ASSERT_EQ(ring_.write(std::vector<StereoFrame>(1000)), 1000U);
  output.stop();
  EXPECT_TRUE(wait_until([&] { return ring_.readable() == 0; }))
      << "what was stopped would come back at the next start";
  output.start();
  EXPECT_FALSE(output.consuming());
  EXPECT_FALSE(output.lost());
  EXPECT_EQ(output.frames_played(), ring_.taken());
}

}  // namespace
}  // namespace tandem
