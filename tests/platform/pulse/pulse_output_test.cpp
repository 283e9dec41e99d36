#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <thread>

#include "engine/core/frames.h"
#include "platform/pulse/pulse_output_fixture.h"

namespace tandem {
namespace {

class PulseOutputTest : public PulseOutputFixture {
 protected:
  void SetUp() override { server_.start(); }

  // However many streams it came in: all that the ring gave, nothing twice.
  void expect_every_frame_in_order() {
    std::uint64_t next = 0;
    const std::vector<Stretch> played = recorded();
    for (const Stretch& stretch : played) {
      ASSERT_EQ(stretch.first, next) << testing::PrintToString(played);
      next = stretch.first + stretch.frames;
    }
    EXPECT_EQ(next, ring_.taken());
  }

  OutputFeeder feeder_{ring_, output_, kKeep};
};

TEST_F(PulseOutputTest, EveryFrameIsPlayedOnceAndUnchanged) {
  server_.start_recording();
  const auto waited_before = server_.waited_for_a_processor();
  output_.open(kBuffer);
  output_.set_queue_length(8);
  output_.start();
  ASSERT_TRUE(played_further(44100));
  output_.stop();
  ASSERT_TRUE(played_out());
  expect_played_whole(recorded(), waited_before);
}

TEST_F(PulseOutputTest, HeardFollowsTheClockAndNeverGoesBack) {
  output_.set_queue_length(6);
  output_.start();
  ASSERT_TRUE(played_further(kRequest));
  std::vector<double> ahead;  // of the clock, in milliseconds
  const Nanoseconds began = monotonic_now();
  std::uint64_t last = 0;
  bool back = false;
  for (Nanoseconds now = began; now < began + kNanosecondsPerSecond; now = monotonic_now()) {
    const std::uint64_t heard = output_.frames_played();
    back = back || heard < last || heard > ring_.taken();
    last = heard;
    // A reading that was interrupted says nothing about the position.
    if (monotonic_now() - now < kNanosecondsPerMillisecond / 2)
      ahead.push_back(static_cast<double>(heard) * 1e3 / kSampleRate - static_cast<double>(now - began) / 1e6);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  std::sort(ahead.begin(), ahead.end());
  EXPECT_FALSE(back);
  ASSERT_GT(ahead.size(), 20U);
  const double spread = ahead[ahead.size() * 95 / 100] - ahead[ahead.size() * 5 / 100];
  RecordProperty("spread_ms", std::to_string(spread));
  EXPECT_LT(spread, 6.0);
}

TEST_F(PulseOutputTest, DepthChangesWithoutAGap) {
  server_.start_recording();
  const auto waited_before = server_.waited_for_a_processor();
  output_.set_queue_length(6);
  output_.start();
  for (const int depth : {19, 6, 12}) {
    ASSERT_TRUE(played_further(kRequest * 4));
    output_.set_queue_length(depth);
    const auto queued = static_cast<std::uint64_t>(depth) * kRequest;
    EXPECT_TRUE(wait_until([&] {
      const std::uint64_t ahead = ring_.taken() - output_.frames_played();
      return ahead > queued * 6 / 10 && ahead < queued * 12 / 10;
    })) << depth
        << " buffers, ahead " << ring_.taken() - output_.frames_played();
  }
  output_.stop();
  ASSERT_TRUE(played_out());
  expect_played_whole(recorded(), waited_before);
}

// The device takes its share of a longer queue at once: it must find it.
TEST_F(PulseOutputTest, AShortQueueBecomesADeepOneWithoutAGap) {
  server_.start_recording();
  const auto waited_before = server_.waited_for_a_processor();
  output_.set_queue_length(3);
  output_.start();
  for (int i = 0; i < 4; ++i) {
    ASSERT_TRUE(played_further(kRequest * 12));
    output_.set_queue_length(19);
    ASSERT_TRUE(wait_until([&] { return ring_.taken() - output_.frames_played() > 13 * kRequest; }));
    ASSERT_TRUE(played_further(kRequest * 12));
    output_.set_queue_length(3);
    ASSERT_TRUE(wait_until([&] { return ring_.taken() - output_.frames_played() < 4 * kRequest; }));
  }
  output_.stop();
  ASSERT_TRUE(played_out());
  expect_played_whole(recorded(), waited_before);
}

TEST_F(PulseOutputTest, ADeepQueueIsAskedForInQuartersAndAShortOneAsItIsPlayed) {
  output_.set_queue_length(19);
  output_.start();
  ASSERT_TRUE(consuming());
  const auto about = [this](double buffers) {
    return std::abs(output_.request_frames() - buffers * static_cast<double>(kRequest)) < 2;
  };
  EXPECT_TRUE(wait_until([&] { return about(19.0 / 4); }));
  output_.set_queue_length(7);
  EXPECT_TRUE(wait_until([&] { return about(1.0 / 8); }));
  output_.set_queue_length(2);
  EXPECT_TRUE(wait_until([&] { return about(1.0 / 8); }));
}

TEST_F(PulseOutputTest, PausePlaysWhatIsQueuedAndRestartGoesOnWithTheNextFrame) {
  server_.start_recording();
  output_.set_queue_length(4);
  output_.start();
  ASSERT_TRUE(played_further(kRequest));
  for (int i = 0; i < 3; ++i) {
    output_.pause();
    ASSERT_TRUE(played_out());
    output_.restart();
    ASSERT_TRUE(played_further(kRequest));
  }
  output_.stop();
  ASSERT_TRUE(played_out());
  expect_every_frame_in_order();
}

TEST_F(PulseOutputTest, ABufferChangeLosesNothing) {
  server_.start_recording();
  output_.set_queue_length(4);
  output_.start();
  ASSERT_TRUE(played_further(kRequest * 2));
  output_.stop();
  output_.close();
  output_.open(2 * kBuffer);
  output_.start();
  output_.start();
  EXPECT_TRUE(wait_until([&] { return output_.request_frames() > static_cast<int>(kRequest) / 5; }));
  ASSERT_TRUE(played_further(kRequest * 6));
  output_.close();
  ASSERT_TRUE(played_out());
  const std::vector<Stretch> played = recorded();
  ASSERT_EQ(played.size(), 2U);
  EXPECT_EQ(played[0].first, 0U);
  EXPECT_EQ(played[1].first, played[0].frames);
  EXPECT_EQ(played[1].first + played[1].frames, ring_.taken());
  EXPECT_LT(played[1].silence_before, 11025U) << "the new stream took too long to begin";
}

TEST_F(PulseOutputTest, ALateRenderThreadIsWaitedForAndNothingIsPutInItsPlace) {
  server_.start_recording();
  output_.set_queue_length(4);
  output_.start();
  ASSERT_TRUE(played_further(kRequest * 2));
  feeder_.hold_back(true);
  EXPECT_TRUE(wait_until([&] { return ring_.readable() == 0 && output_.frames_played() == ring_.taken(); }));
  EXPECT_TRUE(output_.consuming());
  feeder_.hold_back(false);
  ASSERT_TRUE(played_further(kRequest * 4));
  output_.stop();
  ASSERT_TRUE(played_out());
  expect_every_frame_in_order();
}

// The tail is shorter than what the server waits for before it begins.
TEST_F(PulseOutputTest, AFewFramesAreHeardToo) {
  server_.start_recording();
  output_.start();
  feeder_.hold_back(true);
  ASSERT_TRUE(consuming());
  std::vector<StereoFrame> few(100);
  for (std::size_t i = 0; i < few.size(); ++i) few[i] = numbered_frame(ring_.written() + i);
  const std::uint64_t before = ring_.written();
  ASSERT_EQ(ring_.write(few), few.size());
  output_.stop();
  ASSERT_TRUE(played_out());
  EXPECT_EQ(ring_.taken(), before + few.size());
  const std::vector<Stretch> played = recorded();
  ASSERT_FALSE(played.empty());
  EXPECT_EQ(played.back().first + played.back().frames, ring_.taken());
}

TEST_F(PulseOutputTest, ARingThatStaysEmptyWhileItPlaysIsABreak) {
  output_.set_queue_length(3);
  output_.start();
  ASSERT_TRUE(played_further(30 * kRequest));  // it plays steadily
  const std::uint64_t before = output_.underruns();
  feeder_.hold_back(true);
  EXPECT_TRUE(wait_until([&] { return output_.underruns() == before + 1; }));
  feeder_.hold_back(false);
  EXPECT_TRUE(played_further(4 * kRequest));
}

TEST_F(PulseOutputTest, AnEndIsNoBreak) {
  output_.set_queue_length(3);
  output_.start();
  ASSERT_TRUE(played_further(4 * kRequest));
  const auto waited = server_.waited_for_a_processor();
  const std::uint64_t before = output_.underruns();
  output_.stop();
  EXPECT_TRUE(played_out());
  if (server_.waited_for_a_processor() - waited < std::chrono::milliseconds(50)) {
    EXPECT_EQ(output_.underruns(), before);
  }
}

}  // namespace
}  // namespace tandem
