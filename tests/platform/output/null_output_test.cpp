#include "platform/output/null_output.h"

#include <gtest/gtest.h>

#include "platform/output_feeder.h"
#include "platform/output_test_server.h"

namespace tandem {
namespace {

class NullOutputTest : public testing::Test {
 protected:
  OutputRing ring_;
  NullOutput output_{ring_};
  OutputFeeder feeder_{ring_, output_, 2 * kTestedRequest};
};

TEST_F(NullOutputTest, KeepsThePaceOfTheClock) {
  output_.open(kTestedBuffer);
  output_.start();
  ASSERT_TRUE(wait_until([&] { return output_.frames_played() > kTestedRequest; }));
  const Nanoseconds began = monotonic_now();
  const std::uint64_t from = output_.frames_played();
  ASSERT_TRUE(wait_until([&] { return output_.frames_played() >= from + 22050; }));
  const Nanoseconds took = monotonic_now() - began;
  EXPECT_GE(took, kNanosecondsPerSecond / 2 - kNanosecondsPerMillisecond);
  EXPECT_EQ(output_.request_frames(), static_cast<int>(kTestedRequest));
}

TEST_F(NullOutputTest, PauseHoldsWithEverythingPlayedAndRestartGoesOn) {
  output_.start();
  ASSERT_TRUE(wait_until([&] { return output_.frames_played() > kTestedRequest; }));
  output_.pause();
  ASSERT_TRUE(wait_until([&] { return !output_.consuming() && output_.frames_played() == ring_.taken(); }));
  const std::uint64_t held = output_.frames_played();
  output_.restart();
  EXPECT_TRUE(wait_until([&] { return output_.frames_played() > held + kTestedRequest; }));
}

TEST_F(NullOutputTest, DeepQueueIsTakenAheadOfWhatIsHeard) {
  output_.open(kTestedBuffer);
  output_.set_queue_length(12);
  output_.start();
  EXPECT_TRUE(wait_until([&] { return ring_.taken() >= output_.frames_played() + 11 * kTestedRequest; }));
  const std::uint64_t taken = ring_.taken();  // asked first: the clock runs on
  EXPECT_LE(taken, output_.frames_played() + 12 * kTestedRequest);
}

TEST_F(NullOutputTest, TakesNothingWhenClosed) {
  output_.start();
  ASSERT_TRUE(wait_until([&] { return output_.consuming(); }));
  output_.close();
  EXPECT_TRUE(wait_until([&] { return !output_.consuming() && output_.frames_played() == ring_.taken(); }));
}

}  // namespace
}  // namespace tandem
