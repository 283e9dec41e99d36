// What a deck does at a new name, a mute, a seek past the end, and with events that arrive too late.
#include <gmock/gmock.h>

#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"

namespace tandem::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Both decks sound the same song length, started in the same step, with the panel stopped.
void start_both(PlayerRig& rig, const AddedSong& a, const AddedSong& b) {
  rig.deck(0).put_FileName(a.path);
  rig.deck(1).put_FileName(b.path);
  rig.mixer().put_Mute(0, false);
  rig.mixer().put_Mute(1, false);
}

class DeckRules : public testing::Test {
 protected:
  AddedSong noise(const std::string& name, std::int64_t ms) {
    return make_song(rig, name, full_noise(static_cast<unsigned>(ms), frames_of(ms), 0.2));
  }
  PlayerRig rig;
};

TEST_F(DeckRules, TheSameNameAgainReopensAndRewinds) {
  const AddedSong song = noise("a", 5000);
  rig.deck(0).put_FileName(song.path);
  rig.mixer().put_Mute(0, false);
  rig.run(1000);
  const std::size_t again = rig.next_start();
  rig.deck(0).put_FileName(song.path);
  EXPECT_EQ(rig.deck(0).Position(), 0);
  EXPECT_EQ(rig.deck(0).FileName(), song.path);
  rig.run(2000);
  EXPECT_EQ(rig.deck(0).Position(), 2000);
  // What was broken off fades for one step over the beginning, whose dither ends a millisecond later.
  std::size_t wrong = 0;
  for (std::size_t i = kStepFrames + kStepFrames / 10; i < 40'000; ++i)
    if (rig.sound()[again + i].left != static_cast<int>(song.sound[i].left * 32768.0F)) ++wrong;
  EXPECT_EQ(wrong, 0U);
}

TEST_F(DeckRules, ANewNameCancelsAFinishingRun) {
  const PanelLog log(rig);
  const AddedSong song = noise("a", 8000);
  rig.deck(0).put_FileName(song.path);
  rig.mixer().put_Mute(0, false);
  rig.run(100);
  rig.deck(0).finish(2000);
  rig.run(1000);
  const std::size_t again = rig.next_start();
  rig.deck(0).put_FileName(song.path);
  rig.run(7000);
  EXPECT_THAT(log.events, IsEmpty());
  EXPECT_EQ(rig.sound()[again + 200'000].left, static_cast<int>(song.sound[200'000].left * 32768.0F));
}

TEST_F(DeckRules, AnEndUnderWayIsDroppedAtANewName) {
  const AddedSong later = noise("later", 700);
  const PanelLog log(rig);
  rig.hooks.after_finished.emplace_back([&](int input) {
    if (input == 0) rig.deck(1).put_FileName(later.path);
  });
  start_both(rig, noise("a", 500), noise("b", 500));
  rig.run(600);
  EXPECT_THAT(log.events, ElementsAre("finished 0"));
  EXPECT_FALSE(rig.mixer().Mute(1));
  rig.run(700);
  EXPECT_THAT(log.events, ElementsAre("finished 0", "finished 1"));
}

TEST_F(DeckRules, AnEndUnderWayIsDroppedAtAMute) {
  const PanelLog log(rig);
  rig.hooks.after_finished.emplace_back([&](int input) {
    if (input != 0) return;
    rig.mixer().put_Mute(1, true);
    rig.mixer().put_Mute(1, false);
  });
  start_both(rig, noise("a", 500), noise("b", 500));
  rig.run(600);
  EXPECT_THAT(log.events, ElementsAre("finished 0"));
  rig.run(500);  // the deck was rewound, and its song has ended a second time
  EXPECT_THAT(log.events, ElementsAre("finished 0", "finished 1"));
}

TEST_F(DeckRules, TheSongThatSoundsLongerEndsFirst) {
  const PanelLog log(rig);
  const AddedSong a = noise("a", 500);
  const AddedSong b = noise("b", 500);
  rig.deck(0).put_FileName(a.path);
  rig.deck(1).put_FileName(b.path);
  rig.mixer().put_Mute(1, false);
  rig.mixer().put_Mute(0, false);
  rig.run(600);
  EXPECT_THAT(log.events, ElementsAre("finished 1", "finished 0"));
}

TEST_F(DeckRules, GoingFromSoundingToMutedRewinds) {
  const AddedSong song = noise("a", 5000);
  rig.deck(0).put_FileName(song.path);
  rig.mixer().put_Mute(0, false);
  rig.run(1234);
  rig.mixer().put_Mute(0, true);
  EXPECT_EQ(rig.deck(0).Position(), 0);
  rig.run(500);
  EXPECT_EQ(rig.deck(0).Position(), 0);
  const std::size_t start = rig.next_start();
  rig.mixer().put_Mute(0, false);
  rig.run(100);
  EXPECT_EQ(rig.sound()[start].left, static_cast<int>(song.sound[0].left * 32768.0F));
  EXPECT_EQ(rig.sound()[start + 1000].left, static_cast<int>(song.sound[1000].left * 32768.0F));
}

TEST_F(DeckRules, MutingAMutedInputKeepsItsPlace) {
  const AddedSong song = noise("a", 5000);
  rig.deck(0).put_FileName(song.path);
  rig.deck(0).put_Position(2000);
  rig.run(10);
  rig.mixer().put_Mute(0, true);
  EXPECT_EQ(rig.deck(0).Position(), 2000);
}

TEST_F(DeckRules, ASeekPastTheEndLandsOnItAndTheNextSongStarts) {
  const AddedSong first = add_noise(rig, "first", 20'000);
  const AddedSong second = add_noise(rig, "second", 1000);
  const PanelLog log(rig);
  rig.play();
  rig.run(1000);
  rig.deck(0).put_Position(100'000'000);
  rig.run(30);
  EXPECT_EQ(log.count("finished 0"), 1U);
  EXPECT_EQ(rig.state().CurrentSong, 2);
  EXPECT_FALSE(rig.mixer().Mute(1));
}

TEST_F(DeckRules, ASeekPastTheEndOfAMutedDeckReadsAsTheLength) {
  const AddedSong song = noise("a", 5000);
  rig.deck(0).put_FileName(song.path);
  rig.run(10);
  rig.deck(0).put_Position(100'000'000);
  rig.run(10);
  EXPECT_EQ(rig.deck(0).Position(), 5000);
  EXPECT_EQ(rig.deck(0).Length(), 5000);
}

TEST_F(DeckRules, DecksAndProbeReportTheSameLength) {
  for (const std::int64_t ms : {1, 33, 1234}) {
    const AddedSong song = noise(std::to_string(ms), ms);
    rig.sound_graph().TempFile->put_FileName(song.path);
    rig.deck(1).put_FileName(song.path);
    rig.run(10);
    EXPECT_EQ(rig.deck(1).Length(), rig.sound_graph().TempFile->Length());
  }
}

}  // namespace
}  // namespace tandem::test
