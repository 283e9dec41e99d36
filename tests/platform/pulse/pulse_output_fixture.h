// A libpulse output on a private server (not started yet) with its ring, and the questions that its tests ask.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/output_feeder.h"
#include "platform/output_test_server.h"
#include "platform/pulse/pulse_output.h"

namespace tandem {

class PulseOutputFixture : public testing::Test {
 protected:
  static constexpr int kBuffer = kTestedBuffer;
  static constexpr std::uint64_t kRequest = kTestedRequest;
  static constexpr std::size_t kKeep = 2 * kRequest;

  bool consuming() const {
    return wait_until([this] { return output_.consuming(); });
  }
  bool played_further(std::uint64_t frames) const {
    const std::uint64_t target = output_.frames_played() + frames;
    return wait_until([&] { return output_.frames_played() >= target; });
  }
  bool played_out() const {
    return wait_until([this] { return !output_.consuming() && output_.frames_played() == ring_.taken(); });
  }
  // What was recorded once the last frame that was taken is among it.
  std::vector<Stretch> recorded() const {
    std::vector<Stretch> found;
    wait_until([&] {
      found = stretches_of(server_.recording());
      return !found.empty() && found.back().first + found.back().frames >= ring_.taken();
    });
    return found;
  }
  // One frame after the other up to the last one taken, and without a gap unless others had the processors.
  void expect_played_whole(const std::vector<Stretch>& played, std::chrono::milliseconds waited_before) const {
    std::uint64_t next = 0;
    for (const Stretch& stretch : played) {
      ASSERT_EQ(stretch.first, next) << testing::PrintToString(played);
      next = stretch.first + stretch.frames;
    }
    EXPECT_EQ(next, ring_.taken());
    const auto waited = server_.waited_for_a_processor() - waited_before;
    RecordProperty("waited_ms", std::to_string(waited.count()));
    if (waited < std::chrono::milliseconds(100)) {
      EXPECT_EQ(played.size(), 1U) << testing::PrintToString(played) << ", " << waited.count() << " ms waited";
    }
  }

  OutputTestServer server_;
  OutputRing ring_;
  PulseOutput output_{ring_};
};

}  // namespace tandem
