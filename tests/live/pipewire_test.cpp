// The output on PipeWire, through its PulseAudio protocol.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <optional>
#include <string>

#include "platform/output_feeder.h"
#include "platform/output_test_server.h"
#include "platform/pulse/pulse_output.h"
#include "platform/tone_spectrum.h"

namespace tandem {
namespace {

constexpr double kTone = 997;
constexpr int kDeviceRate = 48000;

StereoFrame tone(std::uint64_t number) {
  const double angle = 2 * std::numbers::pi * kTone * static_cast<double>(number) / kSampleRate;
  const auto value = static_cast<float>(0.99 * std::sin(angle));
  return {value, value};
}

class LivePipewire : public testing::Test {
 protected:
  void SetUp() override {
    if (!is_installed(SoundServer::kPipewire)) GTEST_SKIP() << "PipeWire is not installed";
    server_.emplace(SoundServer::kPipewire);
    server_->start();
    server_->load_sink("card", kDeviceRate, "float32le");
    server_->move_streams_to("card");
    output_.emplace(ring_);
    feeder_.emplace(ring_, *output_, std::size_t{2560}, tone);
    output_->set_queue_length(8);
    output_->start();
  }
  bool played_further(std::uint64_t frames) {
    const std::uint64_t target = output_->frames_played() + frames;
    return wait_until([&] { return output_->frames_played() >= target; });
  }

  OutputRing ring_;
  std::optional<OutputTestServer> server_;
  std::optional<PulseOutput> output_;
  std::optional<OutputFeeder> feeder_;
};

TEST_F(LivePipewire, AToneThroughADeviceOf48000HzIsClean) {
  ASSERT_TRUE(played_further(kSampleRate / 2));
  server_->start_float_recording("card", kDeviceRate);
  ASSERT_TRUE(played_further(3 * kSampleRate));
  const test::ToneSpectrum spectrum(server_->float_recording(), kDeviceRate, kTone);
  RecordProperty("unwanted_dbfs", std::to_string(spectrum.worst()));
  EXPECT_LT(spectrum.worst(), -105) << "at " << spectrum.worst_hz() << " Hz";
  EXPECT_NEAR(spectrum.level(), 20 * std::log10(0.99), 0.05);
}

TEST_F(LivePipewire, ThePositionKeepsTimeAndTheEndIsPlayedWhole) {
  ASSERT_TRUE(played_further(kSampleRate / 2));
  const Nanoseconds began = monotonic_now();
  const std::uint64_t from = output_->frames_played();
  ASSERT_TRUE(played_further(2 * kSampleRate));
  const double seconds = static_cast<double>(monotonic_now() - began) / 1e9;
  EXPECT_NEAR(static_cast<double>(output_->frames_played() - from) / kSampleRate, seconds, 0.1);
  output_->stop();
  EXPECT_TRUE(wait_until([this] { return !output_->consuming() && output_->frames_played() == ring_.taken(); }));
}

}  // namespace
}  // namespace tandem
