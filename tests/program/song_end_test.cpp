// How songs end, and how the list goes on from there. What is heard is measured to the sample.
#include <gmock/gmock.h>

#include <filesystem>
#include <limits>

#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"
#include "support/bytes.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

using testing::ElementsAre;

constexpr std::size_t kGap = 30 * kSampleRate / 1000;  // the longest that a list may be silent between two songs

struct Place {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Where each song was heard, whole; nothing else may be heard.
std::vector<Place> places(const PlayerRig& rig, const std::vector<AddedSong>& songs) {
  SongFinder finder(rig.sound());
  std::vector<Place> places;
  for (const AddedSong& song : songs) {
    const std::size_t begin = finder.take(song.sound);
    places.push_back({begin, begin + song.sound.size()});
  }
  EXPECT_LE(finder.rest(), 1.0) << "first at frame " << finder.first_rest();
  return places;
}

void play_to_the_end(PlayerRig& rig) {
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(60'000));
  rig.run(20);
}

// The list believes in `milliseconds`, but only `frames` are there when it is played.
AddedSong add_cut(PlayerRig& rig, const std::string& name, std::int64_t milliseconds, std::size_t frames) {
  AddedSong song = add_noise(rig, name, milliseconds);
  const std::size_t missing = song.sound.size() - frames;
  std::filesystem::resize_file(song.path, std::filesystem::file_size(song.path) - missing * sizeof(Sample16));
  song.sound.resize(frames);
  return song;
}

TEST(EndTick, StartsTheNextSongWhenOneEndsBeforeItsMixPoint) {
  PlayerRig rig;
  const AddedSong cut = add_cut(rig, "cut", 3000, 20'000);
  const AddedSong next = add_noise(rig, "next", 1000);
  const PanelLog log(rig);
  play_to_the_end(rig);
  const auto found = places(rig, {cut, next});
  EXPECT_GE(found[1].begin, found[0].end);
  EXPECT_LE(found[1].begin, found[0].end + kGap);
  EXPECT_THAT(log.events, ElementsAre("tick end -", "finished 0", "tick - end", "finished 1"));
}

TEST(EndTick, IsNotDeliveredWhereTheMixHasStartedTheNextSong) {
  PlayerRig rig;
  rig.choose_lead(280);
  const AddedSong first = add_noise(rig, "first.wav", 2000);
  const AddedSong second = add_noise(rig, "second.wav", 1000);
  const PanelLog log(rig);
  play_to_the_end(rig);
  places(rig, {first, second});
  EXPECT_THAT(log.events, ElementsAre("finished 0", "tick - end", "finished 1"));
}

TEST(EndTick, SongsShorterThanTheLeadAreHeardInOrderWithoutAGap) {
  PlayerRig rig;
  rig.choose_lead(3500);
  std::vector<AddedSong> songs;
  for (const int ms : {900, 400, 60, 1500, 250, 5000}) songs.push_back(add_noise(rig, std::to_string(ms), ms));
  play_to_the_end(rig);
  const auto found = places(rig, songs);
  EXPECT_LE(longest_silence(rig.sound(), found[0].begin, found.back().end), kGap);
}

// Only the outgoing song of Next ends while the other sounds: a tick there would skip a song.
TEST(EndTick, IsNotDeliveredWhenASkippedSongHasRunOut) {
  PlayerRig rig;
  for (const char* name : {"a", "b", "c"}) add_noise(rig, name, 20'000);
  const PanelLog log(rig);
  rig.play();
  rig.run(1000);
  rig.next();
  rig.run(4100);
  EXPECT_THAT(log.events, ElementsAre("finished 0"));
  EXPECT_EQ(rig.state().CurrentSong, 2);
  EXPECT_EQ(rig.controls().PlayList.ListIndex(), 1);
}

TEST(EndTick, IsNotFollowedByTheEndWhenItPutANewSongOnThatDeck) {
  PlayerRig rig;
  const AddedSong first = add_noise(rig, "first", 500);
  const AddedSong again = make_song(rig, "again", full_noise(9, 20'000, 0.2));
  PanelLog log(rig);
  bool renamed = false;
  rig.hooks.after_mix_tick.emplace_back([&] {
    if (renamed || rig.deck(0).Position() != std::numeric_limits<std::int32_t>::max()) return;
    renamed = true;
    rig.deck(0).put_FileName(again.path);
  });
  rig.play();
  rig.run(700);
  EXPECT_THAT(log.events, ElementsAre("tick end -"));
  ASSERT_TRUE(rig.run_until_stopped(2000));
  const auto found = places(rig, {first, again});
  EXPECT_LE(found[1].begin, found[0].end + kStepFrames);
}

TEST(EndTick, IsNeverSeenByTheTimeDisplay) {
  PlayerRig rig;
  for (const char* name : {"a", "b", "c"}) add_noise(rig, name, 1230);
  int beyond = 0;
  rig.hooks.after_refresh.emplace_back([&] {
    for (std::size_t deck = 0; deck < 2; ++deck) beyond += rig.deck(deck).Position() > 1230 ? 1 : 0;
  });
  play_to_the_end(rig);
  EXPECT_EQ(beyond, 0);
}

TEST(Finish, AnInputIsMutedBeforeItsEndIsNotified) {
  PlayerRig rig;
  for (const char* name : {"a", "b"}) add_noise(rig, name, 1000);
  const PanelLog log(rig);
  play_to_the_end(rig);
  EXPECT_EQ(log.count("finished 0") + log.count("finished 1"), 2U);
}

TEST(OneClock, PositionCountsWhatTheMixerHasTakenInStepsOfTenMilliseconds) {
  PlayerRig rig;
  add_noise(rig, "a", 5000);
  rig.play();
  for (int step = 1; step <= 300; ++step) {
    rig.run(10);
    ASSERT_EQ(rig.deck(0).Position(), 10 * step);
  }
}

TEST(Order, AnIncomingSongThatEndsFirstWaitsForTheOutgoingOneAndATick) {
  PlayerRig rig;
  rig.choose_lead(2500);
  const AddedSong longer = add_noise(rig, "longer", 5000);
  const AddedSong cut = add_cut(rig, "cut", 4000, 44'100);
  const AddedSong last = add_noise(rig, "last", 3000);
  const PanelLog log(rig);
  play_to_the_end(rig);
  const auto found = places(rig, {longer, cut, last});
  EXPECT_LT(found[1].end, found[0].end);
  EXPECT_GE(found[2].begin, found[0].end);
  EXPECT_LE(found[2].begin, found[0].end + kGap);
  EXPECT_THAT(log.events, ElementsAre("finished 0", "tick - end", "finished 1", "tick end -", "finished 0"));
  EXPECT_EQ(log.times.at(1) - log.times.at(0), 10);
}

TEST(EmptyDeck, ASongThatCannotBeOpenedIsPassedOver) {
  PlayerRig rig;
  rig.choose_lead(280);
  const AddedSong first = add_noise(rig, "first", 1500);
  const AddedSong bad = add_noise(rig, "bad", 1000);
  const AddedSong last = add_noise(rig, "last", 1000);
  write_file(bad.path, text_bytes("no sound"));
  const std::size_t start = rig.next_start();
  play_to_the_end(rig);
  const auto found = places(rig, {first, last});
  EXPECT_EQ(found[0].begin, start);
  EXPECT_LE(found[1].begin, found[0].end + kGap);
}

TEST(EmptyDeck, AListOfNothingButMissingSongsEndsAtOnce) {
  PlayerRig rig;
  for (int i = 0; i < 20; ++i) std::filesystem::remove(add_noise(rig, std::to_string(i), 1000).path);
  rig.play();
  EXPECT_TRUE(rig.run_until_stopped(20 * 10 + 20));
}

TEST(EmptyDeck, HasNoLengthNoPositionAndNoName) {
  PlayerRig rig;
  const AddedSong bad = make_song(rig, "bad", constant(0.1, 1000));
  write_file(bad.path, text_bytes("no sound"));
  rig.deck(0).put_FileName(bad.path);
  EXPECT_EQ(rig.deck(0).FileName(), bad.path);  // not opened yet
  rig.run(10);
  EXPECT_EQ(rig.deck(0).FileName(), "");
  EXPECT_EQ(rig.deck(0).Length(), 0);
  EXPECT_EQ(rig.deck(0).Position(), 0);
  rig.deck(0).put_Position(500);
  rig.run(10);
  EXPECT_EQ(rig.deck(0).Position(), 0);
}

TEST(EmptyDeck, UnmutedHasEndedAtOnce) {
  PlayerRig rig;
  const PanelLog log(rig);
  rig.mixer().put_Mute(1, false);
  rig.run(10);
  EXPECT_THAT(log.events, ElementsAre("finished 1"));
  EXPECT_TRUE(rig.mixer().Mute(1));
}

}  // namespace
}  // namespace tandem::test
