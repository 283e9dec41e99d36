// The finishing operation, measured with songs of one constant value: what is heard is the gain.
#include <gmock/gmock.h>

#include "program/player_rig.h"
#include "program/songs.h"

namespace tandem::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kLevel = 0.4;
constexpr int kFull = 13107;  // the same in the output
constexpr std::size_t kFade = 4 * kSampleRate;

// The greatest deviation of the sound from a straight line that comes down from `full` at `from` to 0 `length` frames
// later, within [from + begin, from + end).
double off_the_line(const PlayerRig& rig, std::size_t from, std::size_t length, std::size_t begin, std::size_t end) {
  double greatest = 0;
  for (std::size_t i = begin; i < end; ++i) {
    const double line = kFull * (1.0 - static_cast<double>(i) / static_cast<double>(length));
    greatest = std::max(greatest, std::abs(rig.sound()[from + i].left - line));
  }
  return greatest;
}

class Finishing : public testing::Test {
 protected:
  void add(std::int64_t first_ms) {
    add_song(rig, "first", constant(kLevel, first_ms));
    add_song(rig, "silent", constant(0, 60'000));
    add_song(rig, "last", constant(0, 60'000));
    rig.play();
  }
  PlayerRig rig;
  PanelLog log{rig};
};

TEST_F(Finishing, NextFadesTheOldSongInAStraightLineOverFourSeconds) {
  add(20'000);
  rig.run(5000);
  const std::size_t from = rig.next_start();
  rig.next();
  EXPECT_FALSE(rig.controls().NextBtn.Enabled);
  rig.run(3990);
  EXPECT_THAT(log.events, IsEmpty());
  rig.run(10);
  EXPECT_THAT(log.events, ElementsAre("finished 0"));
  EXPECT_TRUE(rig.controls().NextBtn.Enabled);
  EXPECT_EQ(rig.controls().NextBtn.BackColor, kNextAfter);
  rig.run(100);
  EXPECT_LE(off_the_line(rig, from, kFade, 0, kFade), 1.6);
  constexpr std::size_t kDither = kSampleRate / 1000;  // which a device of 16 bits gets until 1 ms after the fade
  for (std::size_t i = from + kFade + kDither; i < rig.frames(); ++i) ASSERT_EQ(rig.sound()[i].left, 0);
  EXPECT_EQ(rig.state().ActiveDeck, 1);
}

TEST_F(Finishing, TakesWhatRemainsOfAShorterSong) {
  add(6000);
  rig.run(3000);  // the mix point lies at 3.5 s
  const std::size_t from = rig.next_start();
  rig.next();
  rig.run(3100);
  EXPECT_LE(off_the_line(rig, from, 3 * kSampleRate, 0, 3 * kSampleRate), 1.6);
  EXPECT_EQ(log.count("finished 0"), 1U);
}

// A new place in the song takes up where the fade stands: 10 ms around it are the change from sound to sound.
TEST_F(Finishing, ASeekKeepsTheFade) {
  add(20'000);
  rig.run(5000);
  const std::size_t from = rig.next_start();
  rig.next();
  rig.run(2000);
  rig.deck(0).put_Position(8000);
  rig.run(1990);
  EXPECT_THAT(log.events, IsEmpty());
  rig.run(110);
  EXPECT_THAT(log.events, ElementsAre("finished 0"));
  EXPECT_LE(off_the_line(rig, from, kFade, 0, kFade / 2), 1.6);
  EXPECT_LE(off_the_line(rig, from, kFade, kFade / 2 + kStepFrames, kFade), 1.6);
}

TEST_F(Finishing, MutingCancelsTheFade) {
  add(20'000);
  rig.run(5000);
  rig.next();
  rig.run(2000);
  rig.mixer().put_Mute(0, true);
  rig.mixer().put_Mute(0, false);
  rig.run(3000);
  EXPECT_THAT(log.events, IsEmpty());
  EXPECT_EQ(rig.sound().back().left, kFull);
  EXPECT_EQ(rig.deck(0).Position(), 3000);
}

TEST_F(Finishing, OnAMutedDeckEndsAsTheNextEvent) {
  const AddedSong song = make_song(rig, "a", constant(kLevel, 1000));
  rig.deck(1).put_FileName(song.path);
  rig.run(10);
  rig.deck(1).finish(4000);
  EXPECT_THAT(log.events, IsEmpty());
  rig.run(10);
  EXPECT_THAT(log.events, ElementsAre("finished 1"));
}

TEST_F(Finishing, OnAnEmptyDeckEndsAsTheNextEvent) {
  rig.deck(0).finish(4000);
  EXPECT_THAT(log.events, IsEmpty());
  rig.run(10);
  EXPECT_THAT(log.events, ElementsAre("finished 0"));
}

TEST_F(Finishing, OnAMutedDeckIsDroppedAtANewName) {
  const AddedSong song = make_song(rig, "a", constant(kLevel, 1000));
  rig.deck(1).finish(4000);
  rig.deck(1).put_FileName(song.path);
  rig.run(100);
  EXPECT_THAT(log.events, IsEmpty());
}

}  // namespace
}  // namespace tandem::test
