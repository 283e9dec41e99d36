#include "platform/pulse_output.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/output_feeder.h"
#include "platform/output_test_server.h"

namespace tandem {
namespace {

constexpr int kBuffer = 5120;
constexpr std::size_t kKeep = 2 * kBuffer / sizeof(Sample16);

class PulseOutputTest : public testing::Test {
 protected:
  bool heard_past(std::uint64_t frames) {
    return wait_until([&] { return output_.heard() >= frames; });
  }
  bool consuming() {
    return wait_until([&] { return output_.consuming(); });
  }
  // Everything written was played and recorded.
  std::vector<Stretch> recorded_to_the_end() {
    const std::uint64_t last = ring_.taken() - 1;
    wait_until([&] {
      const std::vector<Stretch> found = stretches_of(server_.recording());
      return !found.empty() && found.back().first + found.back().frames > last;
    });
    return stretches_of(server_.recording());
  }

  OutputTestServer server_;
  OutputRing ring_;
  PulseOutput output_{ring_};
};

TEST_F(PulseOutputTest, EveryFrameIsPlayedOnceAndUnchanged) {
  server_.start();
  server_.start_recording();
  OutputFeeder feeder(ring_, output_, kKeep);
  output_.open(kBuffer);
  output_.set_depth(8);
  output_.start();
  ASSERT_TRUE(heard_past(66150));
  output_.stop();
  ASSERT_TRUE(wait_until([&] { return !output_.consuming() && output_.heard() == ring_.taken(); }));
  const std::vector<Stretch> played = recorded_to_the_end();
  ASSERT_EQ(played.size(), 1U);
  EXPECT_EQ(played[0].first, 0U);
  EXPECT_EQ(played[0].frames, ring_.taken());
}

}  // namespace
}  // namespace tandem
