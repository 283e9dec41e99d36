// The guard against silence: 30 ms after the last song that went on where both inputs are muted, half a second where
// one is open, the list is made to go on.
#include <gmock/gmock.h>

#include <limits>

#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"

namespace tandem::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Silence : public testing::Test {
 protected:
  explicit Silence(const SilenceGuard::Patience& patience = {}) : rig(factory_text(), patience) {}
  void start_two() {
    add_noise(rig, "a", 20'000);
    add_noise(rig, "b", 20'000);
    rig.play();
    rig.run(1000);
  }
  PlayerRig rig;
  PanelLog log{rig};
};

// The guard waits for ever.
class UnguardedSilence : public Silence {
 protected:
  static constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();
  UnguardedSilence() : Silence({.all_muted = kNever, .one_open = kNever}) {}
};

TEST_F(Silence, IsBrokenAtOnceWhereBothInputsAreMuted) {
  start_two();
  const std::size_t muted = rig.next_start();
  rig.mixer().put_Mute(0, true);
  rig.run(500);
  EXPECT_THAT(log.events, ElementsAre("tick end end", "finished 0"));
  EXPECT_FALSE(rig.mixer().Mute(1));
  EXPECT_EQ(rig.state().CurrentSong, 2);
  const auto silent = milliseconds_of(static_cast<Frames>(longest_silence(rig.sound(), muted, rig.frames())));
  EXPECT_GE(silent, 20);  // the mute itself fades for a step
  EXPECT_LE(silent, 40);
  record_fault("the panel silences both decks in the middle of a list", "it goes on within 50 ms",
               "after " + std::to_string(silent) + " ms");
}

// How many steps of silence the guard lets pass.
std::uint64_t patience(bool all_muted) {
  SilenceGuard guard;
  for (std::uint64_t step = 0; step < 1000; ++step)
    if (guard.due({true, all_muted, step, 0})) return step;
  return 1000;
}

TEST(SilenceGuardItself, GivesHalfASecondWhereASongMayStillBegin) {
  EXPECT_EQ(patience(true), 3U);
  EXPECT_EQ(patience(false), 50U);
}

TEST_F(UnguardedSilence, LastsAndTheListStandsStill) {
  start_two();
  rig.mixer().put_Mute(0, true);
  rig.run(20'000);
  EXPECT_THAT(log.events, IsEmpty());
  EXPECT_FALSE(rig.stopped());
}

TEST_F(Silence, AtTheEndOfTheListStopsThePanel) {
  add_noise(rig, "only", 20'000);
  rig.play();
  rig.run(1000);
  rig.mixer().put_Mute(0, true);
  rig.run(20);
  EXPECT_FALSE(rig.stopped());
  rig.run(30);
  EXPECT_TRUE(rig.stopped());
  EXPECT_THAT(log.events, ElementsAre("tick end end", "finished 0"));
}

TEST_F(Silence, IsNotBrokenWhilePaused) {
  start_two();
  rig.pause();
  rig.mixer().put_Mute(0, true);
  rig.run(5000);
  EXPECT_THAT(log.events, IsEmpty());
  rig.pause();
  rig.run(60);
  EXPECT_THAT(log.events, ElementsAre("tick end end", "finished 0"));
}

TEST_F(Silence, IsNotBrokenWhileStopped) {
  start_two();
  rig.stop();
  rig.run(5000);
  EXPECT_THAT(log.events, IsEmpty());
}

TEST_F(Silence, QuietMusicIsNotMeant) {
  add_song(rig, "quiet", constant(0, 5000));
  add_noise(rig, "b", 1000);
  rig.play();
  rig.run(2400);  // the mix point lies at 2.5 s
  EXPECT_THAT(log.events, IsEmpty());
  EXPECT_EQ(rig.state().CurrentSong, 1);
}

TEST_F(UnguardedSilence, DoesNotComeInAListOfGoodSongs) {
  for (const char* name : {"a", "b", "c"}) add_noise(rig, name, 4000);
  rig.play();
  EXPECT_TRUE(rig.run_until_stopped(12'000));
}

}  // namespace
}  // namespace tandem::test
