// The real logic and the model, side by side. TANDEM_MODEL_SEQUENCES sets how many random sequences are run, from seed
// TANDEM_MODEL_SEED on.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "faults/measured.h"
#include "model/model_bench.h"
#include "support/short_runs.h"

namespace tandem::model {
namespace {

std::uint64_t setting(const char* name, std::uint64_t otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

TEST(Model, RandomSequencesGiveTheSamePanel) {
  const std::uint64_t first = setting("TANDEM_MODEL_SEED", 1);
  const std::uint64_t count = setting("TANDEM_MODEL_SEQUENCES", test::kShortRuns ? 300U : 4000U);
  for (std::uint64_t seed = first; seed < first + count; ++seed)
    if (const auto events = random_events(seed); first_difference(events))
      FAIL() << "seed " << seed << ":\n" << shrunk_difference(events);
  test::record_fault(std::to_string(count) + " random event sequences against an independent model", "no difference",
                     "no difference");
}

TEST(Model, RandomSequencesReachWhatMatters) {
  if (test::kShortRuns) GTEST_SKIP() << "this judges the sequences, not the code";
  Reached reached;
  for (std::uint64_t seed = 1; seed <= 1000; ++seed) first_difference(random_events(seed), &reached);
  EXPECT_GT(reached.events, 35000);
  EXPECT_GT(reached.mixes, 500);
  EXPECT_GT(reached.changes, 2000);
  EXPECT_GT(reached.ends, 20);
  EXPECT_GT(reached.errors, 500);
  EXPECT_GT(reached.full_tables, 100);
  EXPECT_GT(reached.unequal_lists, 500);
  EXPECT_GT(reached.negative_counts, 20);
}

// The twin list keeps old numbers: a line numbered 100 is cut by four characters below the ninth place, by five from it
// on.
TEST(Model, ALineOfThreeDigitsMovesToTheTop) {
  std::vector<Event> events{{Act::Open, 0, 150}, {Act::Select, 140}};
  events.resize(145, {Act::Up});
  EXPECT_EQ(first_difference(events) ? shrunk_difference(events) : "", "");
}

// More than 201 lines, the selection past the table's end: the mix begins, its title fails, and it begins again.
TEST(Model, AMixAfterTheEndOfTheTableBeginsAgainAndAgain) {
  std::vector<Event> events{{Act::Open, 0, 190}};
  events.resize(9, {Act::Add, 0});
  for (const Event& event : {Event{Act::Select, 0}, Event{Act::Play}, Event{Act::Tick}, Event{Act::Select, 199},
                             Event{Act::Position, 0, 999999}, Event{Act::Tick}, Event{Act::Tick}, Event{Act::Finished}})
    events.push_back(event);
  Reached reached;
  EXPECT_EQ(first_difference(events, &reached) ? shrunk_difference(events) : "", "");
  EXPECT_EQ(reached.mix_errors, 2);
}

}  // namespace
}  // namespace tandem::model
