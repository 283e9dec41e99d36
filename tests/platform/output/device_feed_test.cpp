#include "platform/output/device_feed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "platform/failing_resampler.h"

namespace tandem {
namespace {

class DeviceFeedTest : public testing::Test {
 protected:
  void open(SampleEncoding encoding, int rate) {
    feed_ = std::make_unique<DeviceFeed>(ring_, DeviceFormat{encoding, rate});
  }
  void write(const std::vector<StereoFrame>& frames) { ASSERT_EQ(ring_.write(frames), frames.size()); }
  void write_ramp(std::size_t count) {
    std::vector<StereoFrame> frames(count);
    for (StereoFrame& frame : frames) {
      const auto value = static_cast<float>(ramp_++ % 30000) / 32768.0F;
      frame = {value, -value};
    }
    write(frames);
  }
  template <class Frame>
  std::vector<Frame> read(std::size_t count) {
    std::vector<Frame> frames(count);
    frames.resize(feed_->read(frames.data(), count));
    return frames;
  }
  std::size_t read_end(std::uint64_t up_to) {
    std::vector<StereoFrame> out(1000);
    std::size_t all = 0;
    while (const std::size_t count = feed_->read_end(out.data(), out.size(), up_to)) all += count;
    return all;
  }

  OutputRing ring_;
  std::unique_ptr<DeviceFeed> feed_;
  std::size_t ramp_ = 1;
};

TEST_F(DeviceFeedTest, SixteenBitSoundComesOutBitForBitAtOurRate) {
  open(SampleEncoding::kInt16, kSampleRate);
  write_ramp(2000);
  const std::vector<Sample16> out = read<Sample16>(2500);
  ASSERT_EQ(out.size(), 2000U);
  for (std::size_t n = 0; n < out.size(); ++n) {
    ASSERT_EQ(out[n].left, static_cast<int>(n + 1));
    ASSERT_EQ(out[n].right, -static_cast<int>(n + 1));
  }
}

TEST_F(DeviceFeedTest, FloatPassesAsItIs) {
  open(SampleEncoding::kFloat32, kSampleRate);
  const std::vector<StereoFrame> sound = {{0.1F, -1e-7F}, {1.0F, -1.0F}, {0.0F, 0.0F}};
  write(sound);
  EXPECT_EQ(read<StereoFrame>(3), sound);
}

TEST_F(DeviceFeedTest, ThirtyTwoBitsHoldFullScaleWithoutWrapping) {
  struct Sample32 {
    std::int32_t left;
    std::int32_t right;
  };
  open(SampleEncoding::kInt32, kSampleRate);
  write({{1.0F, -1.0F}, {2.0F, -2.0F}, {0.5F, 0.0F}});
  const auto out = read<Sample32>(3);
  EXPECT_GT(out[0].left, 0x7FFFFF00 - 1);
  EXPECT_EQ(out[0].right, INT32_MIN);
  EXPECT_GT(out[1].left, 0x7FFFFF00 - 1);
  EXPECT_EQ(out[1].right, INT32_MIN);
  EXPECT_EQ(out[2].left, 1 << 30);
  EXPECT_EQ(out[2].right, 0);
}

TEST_F(DeviceFeedTest, SilenceIsZeroInEveryFormat) {
  for (const SampleEncoding encoding : {SampleEncoding::kInt16, SampleEncoding::kInt32, SampleEncoding::kFloat32})
    for (const int rate : {kSampleRate, 48000}) {
      open(encoding, rate);
      write(std::vector<StereoFrame>(4410));
      std::vector<std::byte> out(8 * 8000);
      const std::size_t frames = feed_->read(out.data(), 4000);
      ASSERT_GT(frames, 3000U);
      for (std::size_t n = 0; n < frames * feed_->format().frame_bytes(); ++n) ASSERT_EQ(out[n], std::byte{0});
    }
}

TEST_F(DeviceFeedTest, GivesAllThatItSaysTheRingMustHoldForIt) {
  for (const int rate : {kSampleRate, 8000, 16000, 48000, 96000, 192000}) {
    open(SampleEncoding::kFloat32, rate);
    for (const std::size_t wanted : {1U, 160U, 1000U, 5000U, 441U, 3U}) {
      const std::size_t needed = feed_->ring_frames_for(wanted);
      if (needed > ring_.readable()) write_ramp(needed - ring_.readable());
      EXPECT_EQ(read<StereoFrame>(wanted).size(), wanted) << rate;
    }
  }
}

TEST_F(DeviceFeedTest, TheEndHasAllOfTheSoundAndNoMore) {
  open(SampleEncoding::kFloat32, 48000);
  for (int part = 0; part < 5; ++part) {
    write_ramp(44100);
    std::size_t made = read<StereoFrame>(30000).size();
    made += read_end(ring_.written());
    EXPECT_NEAR(static_cast<double>(made), 48000, 1) << "part " << part;
    EXPECT_EQ(ring_.readable(), 0U);
    EXPECT_EQ(feed_->position_of(feed_->made()), ring_.taken());
  }
}

// A steady level, so that what is heard of it, in frames of the ring, is its sum.
TEST_F(DeviceFeedTest, AChangeOfRateLosesNoFrame) {
  constexpr std::size_t kAll = 40000;
  constexpr std::size_t kChange = 17001;
  write(std::vector<StereoFrame>(kAll, {0.25F, -0.25F}));
  double heard = 0;
  const auto hear = [&](int rate, std::uint64_t up_to) {
    open(SampleEncoding::kFloat32, rate);
    std::vector<StereoFrame> out(1000);
    while (const std::size_t count = feed_->read_end(out.data(), out.size(), up_to))
      for (std::size_t n = 0; n < count; ++n) heard += double{out[n].left} / 0.25 * kSampleRate / rate;
  };
  hear(48000, kChange);
  EXPECT_NEAR(heard, kChange, 0.5);
  hear(96000, kAll);
  EXPECT_NEAR(heard, kAll, 1.0);
}

TEST_F(DeviceFeedTest, AnEndBeforeTheRingsLeavesTheRest) {
  open(SampleEncoding::kFloat32, 48000);
  write_ramp(10000);
  read_end(4000);
  EXPECT_EQ(ring_.taken(), 4000U);
  read_end(1000);
  EXPECT_EQ(ring_.taken(), 4000U) << "what is taken is taken";
}

TEST_F(DeviceFeedTest, AConversionThatFailsIsNoDryRing) {
  open(SampleEncoding::kFloat32, 48000);
  write_ramp(20000);
  EXPECT_EQ(read<StereoFrame>(5000).size(), 5000U);
  EXPECT_FALSE(feed_->broken());
  const test::FailingResampler failing;
  EXPECT_LT(read<StereoFrame>(5000).size(), 5000U);
  EXPECT_TRUE(feed_->broken());
  open(SampleEncoding::kFloat32, 48000);
  EXPECT_TRUE(feed_->broken()) << "none can be made";
  EXPECT_EQ(read<StereoFrame>(100).size(), 0U);
  open(SampleEncoding::kFloat32, kSampleRate);
  EXPECT_FALSE(feed_->broken());
  EXPECT_EQ(read<StereoFrame>(5000).size(), 5000U) << "at our own rate the sound goes on";
}

// Twelve days at the device's rate: no step is lost to rounding.
TEST_F(DeviceFeedTest, PositionsAreThoseOfTheSongHoweverLongItPlays) {
  const DeviceFormat format{SampleEncoding::kFloat32, 48000};
  constexpr std::uint64_t kSeconds = 12 * 86400;
  EXPECT_EQ(format.ring_frames(kSeconds * 48000), kSeconds * 44100);
  EXPECT_EQ(format.device_frames(kSeconds * 44100), kSeconds * 48000);
  open(SampleEncoding::kFloat32, 48000);
  write_ramp(44100);
  read<StereoFrame>(24000);
  EXPECT_EQ(feed_->position_of(0), 0U);
  EXPECT_EQ(feed_->position_of(160), 147U);
  EXPECT_EQ(feed_->position_of(24000), 22050U);
  EXPECT_EQ(feed_->position_of(1'000'000), ring_.taken()) << "never past what was taken";
}

}  // namespace
}  // namespace tandem
