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
