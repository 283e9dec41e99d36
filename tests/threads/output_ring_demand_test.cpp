#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <thread>
#include <vector>

#include "engine/device/output_ring.h"

namespace tandem {
namespace {

using std::chrono::milliseconds;
constexpr milliseconds kLong{60'000};

// Fails if what is done in its life was waited out.
class NotWaitedOut {
 public:
  ~NotWaitedOut() { EXPECT_LT(std::chrono::steady_clock::now() - begin_, kLong / 2); }

 private:
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

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
  EXPECT_EQ(ring.await_demand(milliseconds(1)), 0U) << "reported once";
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
TEST(OutputRingDemand, OneRightAfterAnotherIsFound) {
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
    // One that was met wakes too: two of this round and one of the round before, at most.
    bool found = false;
    for (int tries = 0; tries < 4 && !found; ++tries) found = ring.await_demand(milliseconds(5000)) == round + 1;
    ASSERT_TRUE(found) << "lost in round " << round;
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

TEST(OutputRingDemand, TheWaitForOneIsCalledOff) {
  const NotWaitedOut quick;
  OutputRing ring;
  std::thread caller([&] { ring.call_off(); });
  EXPECT_EQ(ring.await_demand(kLong), 0U);
  ring.demand(300);
  caller.join();
  EXPECT_EQ(ring.await_demand(kLong), 300U) << "the next one is found";
}

TEST(OutputRingDemand, TheEndOfAllIsNotWaitedOut) {
  const NotWaitedOut quick;
  OutputRing ring;
  std::thread output([&] { ring.end_demands(); });
  EXPECT_EQ(ring.await_demand(kLong), 0U);
  output.join();
}

// The renderer of the tests below: writes what is demanded, `rounds` times.
std::thread renderer(OutputRing& ring, std::size_t rounds) {
  ring.serve(true);
  return std::thread([&ring, rounds] {
    for (std::size_t round = 0; round < rounds; ++round) {
      const std::vector<StereoFrame> frames(ring.await_demand(kLong));
      EXPECT_EQ(ring.write(frames), frames.size());
      ring.supply();
    }
  });
}

TEST(OutputRingDemand, WhatIsServedIsThereAfterTheDemand) {
  OutputRing ring;
  constexpr std::size_t kRounds = 5'000;
  std::thread serving = renderer(ring, kRounds);
  std::array<StereoFrame, 7> taken;
  std::size_t missing = 0;
  for (std::size_t round = 0; round < kRounds; ++round) {
    ring.demand_now(taken.size(), kLong);
    missing += taken.size() - ring.read(taken);
  }
  serving.join();
  EXPECT_EQ(missing, 0U);
}

TEST(OutputRingDemand, WithoutAServerTheOutputDoesNotWait) {
  const NotWaitedOut quick;
  OutputRing ring;
  ring.demand_now(300, kLong);
  EXPECT_EQ(ring.await_demand(kLong), 300U) << "it is still to be found";
}

TEST(OutputRingDemand, NothingIsNotWaitedFor) {
  const NotWaitedOut quick;
  OutputRing ring;
  ring.serve(true);
  ring.demand_now(0, kLong);
  EXPECT_EQ(ring.await_demand(milliseconds(1)), 0U);
}

TEST(OutputRingDemand, ASupplyThatCameTooLateIsNotTakenForTheNext) {
  OutputRing ring;
  ring.serve(true);
  ring.demand_now(7, milliseconds(1));
  ring.supply();  // no thread waits any more
  EXPECT_EQ(ring.await_demand(kLong), 7U);
  std::thread serving = renderer(ring, 1);
  ring.demand_now(5, kLong);
  EXPECT_EQ(ring.readable(), 5U);
  serving.join();
}

}  // namespace
}  // namespace tandem
