#include "platform/alsa/alsa_output.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>

#include "platform/device_output.h"
#include "platform/failing_resampler.h"
#include "platform/output_feeder.h"
#include "platform/output_test_server.h"
#include "platform/tone_spectrum.h"

namespace tandem {
namespace {

// Devices without hardware: one that has no clock and takes every format, three that write what they play into a file
// and know one format each (16 bits; 32 bits at 48 kHz; 24 bits in 3 bytes), and one with a clock, which is the sound
// server seen through ALSA.
class AlsaOutputTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string folder = server_.directory().string();
    std::ofstream(folder + "/asound.conf")
        << "pcm.nowhere { type null }\n"
        << card("written", folder, "S16_LE", 44100) << card("wide", folder, "S32_LE", 48000)
        << card("packed", folder, "S24_3LE", 44100) << "pcm.floating { type file slave.pcm nowhere format raw file \""
        << folder << "/recording\" }\n"
        << "pcm.clocked { type pulse server \"unix:" << folder << "/socket\" }\n";
    ::setenv("ALSA_CONFIG_PATH", (folder + "/asound.conf").c_str(), 1);
  }

  static std::string card(const std::string& name, const std::string& folder, const std::string& format, int rate) {
    return "pcm." + name + "_card { type file format raw file \"" + folder +
           "/recording\" slave.pcm { type plug slave {" + " pcm nowhere format " + format + " rate " +
           std::to_string(rate) + " } } }\n" + "pcm." + name + " { type plug slave { pcm " + name + "_card format " +
           format + " rate " + std::to_string(rate) + " } }\n";
  }

  // What the device was given, in its own samples.
  template <class Sample>
  std::vector<Sample> recorded() const {
    std::vector<Sample> samples(std::filesystem::file_size(server_.directory() / "recording") / sizeof(Sample));
    std::ifstream(server_.directory() / "recording", std::ios::binary)
        .read(reinterpret_cast<char*>(samples.data()), static_cast<std::streamsize>(samples.size() * sizeof(Sample)));
    return samples;
  }

  // Plays until more than `frames` of the ring have been heard, then lets the rest out.
  void play(const std::string& device, const OutputFeeder::Sound& sound, std::uint64_t frames) {
    AlsaOutput output(ring_, {device});
    OutputFeeder feeder(ring_, output, 2 * kTestedRequest, sound);
    output.open(kTestedBuffer);
    output.start();
    ASSERT_TRUE(wait_until([&] { return output.frames_played() > frames; }));
    output.close();
    ASSERT_TRUE(wait_until([&] { return !output.consuming() && output.frames_played() == ring_.taken(); }));
  }

  OutputTestServer server_;
  OutputRing ring_;
};

// Between two steps of 16 bits.
StereoFrame fine_frame(std::uint64_t number) {
  const float value = static_cast<float>(number % 1000 + 1) * 0x1p-22F;
  return {value, -value};
}

TEST_F(AlsaOutputTest, EveryFrameReachesTheDeviceUnchanged) {
  AlsaOutput output(ring_, {"written"});
  OutputFeeder feeder(ring_, output, 2 * kTestedRequest);
  output.open(kTestedBuffer);
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

TEST_F(AlsaOutputTest, ADeviceThatTakesFloatGetsTheRingsFramesBitForBit) {
  play("floating", fine_frame, 50000);
  const auto frames = recorded<StereoFrame>();
  ASSERT_GE(frames.size(), ring_.taken());
  for (std::uint64_t n = 0; n < ring_.taken(); ++n) ASSERT_EQ(frames[n], fine_frame(n)) << n;
}

TEST_F(AlsaOutputTest, ADeviceOfPackedSamplesGets24BitsOfEveryFrame) {
  play("packed", fine_frame, 50000);
  const auto bytes = recorded<std::uint8_t>();
  ASSERT_GE(bytes.size(), ring_.taken() * 6);
  for (std::uint64_t n = 0; n < ring_.taken(); ++n) {
    const std::int32_t left = bytes[6 * n] | bytes[6 * n + 1] << 8 | static_cast<std::int8_t>(bytes[6 * n + 2]) << 16;
    ASSERT_EQ(left, std::lround(fine_frame(n).left * 0x1p23F)) << n;
  }
}

TEST_F(AlsaOutputTest, ADeviceOf48KilohertzGetsOurConversionIn32Bits) {
  const auto tone = [](std::uint64_t n) {
    const auto value =
        static_cast<float>(0.9 * std::sin(2.0 * std::numbers::pi * 10000.0 * static_cast<double>(n) / kSampleRate));
    return StereoFrame{value, value};
  };
  play("wide", tone, 3 * kSampleRate);
  std::vector<StereoFrame> sound;
  for (const std::int32_t sample : recorded<std::int32_t>())
    sound.push_back({static_cast<float>(sample) * 0x1p-31F, 0.0F});
  for (std::size_t n = 0; 2 * n < sound.size(); ++n) sound[n] = sound[2 * n];
  sound.resize(static_cast<std::size_t>(static_cast<double>(ring_.taken()) * 48000 / kSampleRate));
  const test::ToneSpectrum spectrum(sound, 48000, 10000);
  EXPECT_NEAR(spectrum.level(), -0.92, 0.01);
  EXPECT_LT(spectrum.worst(), -110.0);
}

TEST_F(AlsaOutputTest, IfOurConversionFailsAlsaConverts) {
  const test::FailingResampler failing;
  play("wide", fine_frame, kSampleRate);
  EXPECT_EQ(ring_.flight_recorder().failed_conversions(), 1U);
  const auto samples = recorded<std::int32_t>();
  EXPECT_GE(static_cast<double>(samples.size()) / 2, static_cast<double>(kSampleRate) * 48000 / 44100);
  EXPECT_GT(std::count_if(samples.begin(), samples.end(), [](std::int32_t sample) { return sample != 0; }), 48000);
}

TEST_F(AlsaOutputTest, PauseHoldsAndRestartGoesOn) {
  AlsaOutput output(ring_, {"nowhere"});
  OutputFeeder feeder(ring_, output, 2 * kTestedRequest);
  output.start();
  for (int i = 0; i < 5; ++i) {
    const std::uint64_t before = output.frames_played();
    ASSERT_TRUE(wait_until([&] { return output.frames_played() > before + 4 * kTestedRequest; }));
    output.pause();
    ASSERT_TRUE(wait_until([&] { return !output.consuming() && output.frames_played() == ring_.taken(); }));
    output.restart();
  }
}

TEST_F(AlsaOutputTest, AMissingDeviceIsLookedForAgain) {
  AlsaOutput output(ring_, {"clocked"});
  OutputFeeder feeder(ring_, output, 2 * kTestedRequest);
  output.start();
  EXPECT_FALSE(output.consuming());
  server_.start();
  EXPECT_TRUE(wait_until([&] { return output.frames_played() > 4 * kTestedRequest; }));
}

TEST_F(AlsaOutputTest, AClockedDeviceIsFollowedAndFoundAgain) {
  server_.start();
  server_.start_recording();
  AlsaOutput output(ring_, {"clocked"});
  OutputFeeder feeder(ring_, output, 2 * kTestedRequest);
  output.open(kTestedBuffer);
  output.set_queue_length(8);
  output.start();
  ASSERT_TRUE(wait_until([&] { return output.frames_played() > 4 * kTestedRequest; }));
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
  EXPECT_TRUE(wait_until([&] { return output.frames_played() > stood + 4 * kTestedRequest; }));
}

TEST_F(AlsaOutputTest, TheServerIsPreferredAndAlsaStandsIn) {
  DeviceOutput output(ring_, "nowhere");
  OutputFeeder feeder(ring_, output, 2 * kTestedRequest);
  output.start();
  ASSERT_TRUE(wait_until([&] { return output.frames_played() > 100 * kTestedRequest; })) << "no server: ALSA";
  server_.start();
  const Nanoseconds deadline = monotonic_now() + 10 * kNanosecondsPerSecond;
  bool clocked = false;  // the device without a clock takes sound many times faster
  while (!clocked && monotonic_now() < deadline) {
    const std::uint64_t from = output.frames_played();
    const Nanoseconds began = monotonic_now();
    wait_until([&] { return output.frames_played() >= from + 4 * kTestedRequest; });
    clocked = monotonic_now() - began > 80 * kNanosecondsPerMillisecond;
  }
  EXPECT_TRUE(clocked) << "the server came: it plays";
  server_.kill_hard();
  const std::uint64_t stood = output.frames_played();
  EXPECT_TRUE(wait_until([&] { return output.frames_played() > stood + 100 * kTestedRequest; }))
      << "the server went: ALSA again";
}

TEST_F(AlsaOutputTest, WithoutAnyDeviceCommandsAreTakenAndNothingConsumes) {
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
