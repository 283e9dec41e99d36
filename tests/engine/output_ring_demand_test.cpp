#include <gtest/gtest.h>

#include <thread>

#include "engine/output_ring.h"

namespace tandem {
namespace {

using std::chrono::milliseconds;
constexpr milliseconds kLong{60'000};

TEST(OutputRingDemand, NoneIsNotWaitedForLongerThanAsked) {
  OutputRing ring;
  EXPECT_EQ(ring.await_demand(milliseconds(1)), 0U);
  EXPECT_EQ(ring.demanded(), 0U);
}

TEST(OutputRingDemand, ADemandBeforeTheWaitIsFound) {
  OutputRing ring;
  ring.demand(300);
  EXPECT_EQ(ring.await_demand(kLong), 300U);
}

TEST(OutputRingDemand, OneThatWasMetMeanwhileIsNone) {
  OutputRing ring;
  ring.demand(300);
  ring.demand(0);
  EXPECT_EQ(ring.await_demand(milliseconds(1)), 0U);
}

TEST(OutputRingDemand, TheLastOneCountsHoweverManyThereWere) {
  OutputRing ring;
  for (std::size_t frames = 1; frames <= 1000; ++frames) ring.demand(frames);
  EXPECT_EQ(ring.await_demand(kLong), 1000U);
  EXPECT_EQ(ring.await_demand(milliseconds(1)), 0U) << "told once";
}

TEST(OutputRingDemand, EndsWithTheOutput) {
  OutputRing ring;
  EXPECT_FALSE(ring.has_demands());
  ring.demand(300);
  EXPECT_TRUE(ring.has_demands());
  ring.end_demands();
  EXPECT_FALSE(ring.has_demands());
  EXPECT_EQ(ring.await_demand(milliseconds(1)), 0U);
}

// A demand that comes while the one before it is being found met must not be lost.
TEST(OutputRingDemand, OneRightBehindAnotherIsFound) {
  OutputRing ring;
  OutputRing answered;
  constexpr std::size_t kRounds = 20'000;
  std::thread output([&] {
    for (std::size_t round = 1; round <= kRounds; ++round) {
      ring.demand(1);
      ring.demand(0);
      ring.demand(round + 1);
      answered.await_demand(kLong);
    }
  });
  for (std::size_t round = 1; round <= kRounds; ++round) {
    std::size_t found = ring.await_demand(kLong);
    while (found == 1 && round > 1) found = ring.await_demand(kLong);
    ASSERT_GT(found, 0U) << "lost in round " << round;
    while (ring.demanded() != round + 1) std::this_thread::yield();
    answered.demand(1);
  }
  output.join();
}

TEST(OutputRingDemand, WakesTheWaitingThread) {
  OutputRing ring;
  OutputRing answered;
  std::thread output([&] {
    for (std::size_t frames = 1; frames <= 200; ++frames) {
      ring.demand(frames);
      answered.await_demand(kLong);
    }
  });
  for (std::size_t frames = 1; frames <= 200; ++frames) {
    EXPECT_EQ(ring.await_demand(kLong), frames);
    answered.demand(1);
  }
  output.join();
}

}  // namespace
}  // namespace tandem
