// The clock on the wall is only looked at: nothing that sounds depends on it.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/songs.h"

namespace tandem::test {
namespace {

std::vector<Sample16> evening(const std::function<std::string()>& wall_clock) {
  PlayerRig rig;
  rig.player().wall_clock = wall_clock;
  for (const char* name : {"1", "2", "3"}) add_noise(rig, name, 4000);
  rig.choose_lead(1000);
  rig.play();
  EXPECT_TRUE(rig.run_until_stopped(20'000));
  return rig.sound();
}

TEST(WallClock, ThatJumpsChangesNoSample) {
  std::size_t looks = 0;
  const std::array<std::string, 6> times = {"23:59", "00:00", "03:00", "02:00", "12:00", "11:59"};
  const auto jumping = [&] { return times.at(looks++ % times.size()); };
  const auto jumped = evening(jumping);
  const auto calm = evening({});
  EXPECT_GE(looks, 40U);
  ASSERT_EQ(jumped.size(), calm.size());
  std::size_t differ = 0;
  for (std::size_t i = 0; i < calm.size(); ++i)
    if (calm[i].left != jumped[i].left || calm[i].right != jumped[i].right) ++differ;
  EXPECT_EQ(differ, 0U);
  record_fault("wall clock jumps " + std::to_string(looks) + " times", "the same samples",
               std::to_string(differ) + " samples differ");
}

}  // namespace
}  // namespace tandem::test
