// The same acts make the same sound, byte for byte.
#include <gtest/gtest.h>

#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/ten_songs.h"

namespace tandem::test {
namespace {

std::vector<Sample16> an_evening() {
  PlayerRig rig;
  for (const KnownSong& song : ten_songs()) rig.add(song.path);
  rig.play();
  rig.run(3000);
  rig.controls().SliderP.move(7);
  rig.controls().sl0[4].move(9);
  rig.run(1230);
  rig.next();
  rig.run(5000);
  rig.seek(4321);
  rig.controls().Volume.move(20000);
  rig.run(2000);
  rig.pause();
  rig.run(300);
  rig.pause();
  rig.run_until_stopped(90'000);
  return rig.sound();
}

TEST(SameSound, TwoRunsOfTheSameActsAreIdentical) {
  const auto first = an_evening();
  const auto second = an_evening();
  ASSERT_GT(first.size(), std::size_t{30} * kSampleRate);
  EXPECT_LT(longest_silence(first, 0, first.size()), first.size() / 2);
  EXPECT_TRUE(first == second);
}

}  // namespace
}  // namespace tandem::test
