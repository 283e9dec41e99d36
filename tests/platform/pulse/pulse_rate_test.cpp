// Devices that run at another rate or take more than 16 bits: the server has nothing to convert.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "platform/failing_resampler.h"
#include "platform/pulse/pulse_output_fixture.h"
#include "platform/tone_spectrum.h"

namespace tandem {
namespace {

constexpr double kTone = 997;

StereoFrame tone(std::uint64_t number) {
  const double angle = 2 * std::numbers::pi * kTone * static_cast<double>(number) / kSampleRate;
  const auto value = static_cast<float>(0.99 * std::sin(angle));
  return {value, value};
}

class PulseRateTest : public PulseOutputFixture {
 protected:
  void SetUp() override { server_.start(); }
  void play_on(const std::string& sink, int rate, const std::string& format) {
    server_.load_sink(sink, rate, format);
    server_.move_streams_to(sink);
    output_.set_queue_length(8);
    output_.start();
    ASSERT_TRUE(consuming());
  }
  bool has_stream(const std::string& format) {
    return wait_until([&] { return server_.stream_formats().find(format) != std::string::npos; });
  }
  // A sink that another program plays to: the server cannot change its rate to that of our stream.
  void load_busy_sink(const std::string& name, int rate) {
    server_.load_sink(name, rate, "float32le");
    others_.emplace_back(std::vector<std::string>{"pacat", "-d", name, "--raw", "--format=s16le", "--channels=2",
                                                  "--rate=" + std::to_string(rate), "/dev/zero"},
                         server_.directory() / (name + ".out"));
    EXPECT_TRUE(has_stream("s16le 2ch " + std::to_string(rate) + "Hz;")) << server_.stream_formats();
  }

  OutputFeeder feeder_{ring_, output_, kKeep, tone};
  std::vector<ChildProcess> others_;
};

TEST_F(PulseRateTest, ADeviceOf24BitsGetsFloatAtItsOwnRate) {
  play_on("card", 96000, "s24le");
  EXPECT_TRUE(has_stream("float32le 2ch 96000Hz;")) << server_.stream_formats();
}

TEST_F(PulseRateTest, ADeviceOf16BitsGets16BitsAtItsOwnRate) {
  play_on("card", 48000, "s16le");
  EXPECT_TRUE(has_stream("s16le 2ch 48000Hz;")) << server_.stream_formats();
}

TEST_F(PulseRateTest, AToneThroughADeviceOf48000HzIsClean) {
  play_on("card", 48000, "float32le");
  ASSERT_TRUE(played_further(kRequest));
  server_.start_float_recording("card", 48000);
  ASSERT_TRUE(played_further(3 * kSampleRate));
  const auto waited = server_.waited_for_a_processor();
  const test::ToneSpectrum spectrum(server_.float_recording(), 48000, kTone);
  RecordProperty("unwanted_dbfs", std::to_string(spectrum.worst()));
  RecordProperty("waited_ms", std::to_string(waited.count()));
  EXPECT_LT(spectrum.worst(), -110) << "at " << spectrum.worst_hz() << " Hz";
  EXPECT_NEAR(spectrum.level(), 20 * std::log10(0.99), 0.05);
}

TEST_F(PulseRateTest, ThePositionIsThatOfTheSongAndTheEndIsPlayedWhole) {
  play_on("card", 48000, "float32le");
  server_.start_float_recording("card", 48000);
  ASSERT_TRUE(played_further(kSampleRate));
  output_.stop();
  ASSERT_TRUE(played_out());
  EXPECT_EQ(output_.frames_played(), ring_.taken());
  const auto at_first = static_cast<double>(ring_.taken());
  output_.start();
  ASSERT_TRUE(played_further(kSampleRate / 2));
  EXPECT_LE(output_.frames_played(), ring_.taken());
  const Nanoseconds began = monotonic_now();
  const std::uint64_t from = output_.frames_played();
  ASSERT_TRUE(played_further(kSampleRate));
  const double seconds = static_cast<double>(monotonic_now() - began) / 1e9;
  EXPECT_NEAR(static_cast<double>(output_.frames_played() - from) / kSampleRate, seconds, 0.05);
  EXPECT_GT(static_cast<double>(ring_.taken()), at_first);
}

TEST_F(PulseRateTest, IfOurConversionFailsTheServerConverts) {
  play_on("card", 48000, "float32le");
  ASSERT_TRUE(has_stream("float32le 2ch 48000Hz;")) << server_.stream_formats();
  ASSERT_TRUE(played_further(kSampleRate / 2));
  {
    const test::FailingResampler failing;
    EXPECT_TRUE(has_stream("float32le 2ch 44100Hz;")) << server_.stream_formats();
    server_.start_float_recording("card", 48000);
    ASSERT_TRUE(played_further(2 * kSampleRate));
    EXPECT_EQ(ring_.flight_recorder().failed_conversions(), 1U);
  }
  const test::ToneSpectrum spectrum(server_.float_recording(), 48000, kTone);
  EXPECT_NEAR(spectrum.level(), 20 * std::log10(0.99), 0.5);
  output_.close();
  output_.open(kBuffer);
  output_.start();
  EXPECT_TRUE(has_stream("float32le 2ch 48000Hz;")) << server_.stream_formats();
}

TEST_F(PulseRateTest, ADeviceOfAnotherRateInItsPlaceIsFollowedAndNoFrameIsLost) {
  output_.set_queue_length(4);
  output_.start();
  ASSERT_TRUE(played_further(kSampleRate / 2));
  EXPECT_TRUE(has_stream("s16le 2ch 44100Hz;")) << server_.stream_formats();
  std::uint64_t played = output_.frames_played();
  for (const int rate : {48000, 88200, 96000}) {
    const std::string name = "card" + std::to_string(rate);
    load_busy_sink(name, rate);
    server_.move_streams_to(name);
    EXPECT_TRUE(has_stream("float32le 2ch " + std::to_string(rate) + "Hz;")) << server_.stream_formats();
    ASSERT_TRUE(played_further(kSampleRate / 4));
    EXPECT_GT(output_.frames_played(), played) << "never back";
    played = output_.frames_played();
  }
  output_.stop();
  ASSERT_TRUE(played_out());
  EXPECT_EQ(output_.frames_played(), ring_.taken());
}

}  // namespace
}  // namespace tandem
