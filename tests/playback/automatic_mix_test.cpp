#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Mixing : PanelTest {
  void play(int songs) {
    panel.add_songs(songs);
    state.MixTimeMs = 2500;
    controls.PLAY.click.raise();
    panel.sound.calls.clear();
  }
  void position(std::size_t deck, std::int32_t milliseconds) { panel.sound.deck.at(deck)->position = milliseconds; }
};

using Changeover = Mixing;

TEST_F(Mixing, TheFirstTickLoadsTheNextSongMuted) {
  play(3);
  panel.tick();
  EXPECT_THAT(panel.sound.calls, ElementsAre("AudioFile(1).FileName(/music/b.mp3)", "WaveMixer.Mute(1, True)"));
  EXPECT_EQ(state.NextSongLoaded, kTrue);
}

TEST_F(Mixing, FurtherTicksBeforeTheMixPointDoNothing) {
  play(3);
  panel.tick();
  panel.sound.calls.clear();
  position(0, 197500);  // not beyond: 200 000 less 2500
  panel.tick();
  panel.tick();
  EXPECT_THAT(panel.sound.calls, IsEmpty());
}

TEST_F(Mixing, BeyondTheMixPointTheNextSongStartsOnTheIdleDeck) {
  play(3);
  panel.tick();
  panel.sound.calls.clear();
  position(0, 197501);
  panel.tick();
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveMixer.Mute(1, False)"));
  EXPECT_EQ(state.CurrentSong, 2);  // at that moment, not at the song's end
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "B.MP3");
  EXPECT_EQ(state.MixStarted, kTrue);
  EXPECT_EQ(state.ActiveDeck, 0);
}

TEST_F(Mixing, TheRemainingTicksOfAMixDoNothing) {
  play(3);
  panel.tick();
  position(0, 197501);
  panel.tick();
  panel.sound.calls.clear();
  position(0, 199999);
  panel.tick();
  EXPECT_THAT(panel.sound.calls, IsEmpty());
  EXPECT_EQ(state.CurrentSong, 2);
}

TEST_F(Mixing, NoLevelIsChanged) {
  play(3);
  panel.tick();
  position(0, 197501);
  panel.tick();
  EXPECT_EQ(panel.sound.mixer->Volume(), 32768);
  EXPECT_FALSE(panel.sound.mixer->Mute(0));
  EXPECT_FALSE(panel.sound.mixer->Mute(1));
}

TEST_F(Mixing, OnTheLastLineNoMixStarts) {
  play(1);
  panel.tick();
  EXPECT_THAT(panel.sound.calls, ElementsAre("AudioFile(1).FileName()", "WaveMixer.Mute(1, True)"));
  position(0, 199990);
  panel.tick();
  EXPECT_EQ(state.MixStarted, kFalse);
  EXPECT_TRUE(panel.sound.mixer->Mute(1));
}

TEST_F(Mixing, ASelectionOnTheLastLineStopsTheAutomaticMix) {
  play(3);
  panel.tick();
  panel.select(2);
  position(0, 199000);
  panel.tick();
  EXPECT_EQ(state.CurrentSong, 1);
  EXPECT_EQ(state.MixStarted, kFalse);
}

TEST_F(Mixing, ASongShorterThanTheLeadStartsTheNextAtOnce) {
  panel.add_song("/music/short.mp3", 2000);
  panel.add_song("/music/b.mp3", 180000);
  state.MixTimeMs = 3500;
  controls.PLAY.click.raise();
  panel.tick();
  EXPECT_EQ(state.CurrentSong, 2);
}

TEST_F(Mixing, TheVariableCountsNotTheLamps) {
  play(3);
  state.MixTimeMs = 500;
  panel.tick();
  position(0, 199501);
  panel.tick();
  EXPECT_EQ(state.CurrentSong, 2);
}

TEST_F(Mixing, TheSubtractionIsThirtyTwoBitsWide) {
  play(3);
  panel.program.SongTable.at(1).SongLength = -2147483647;
  panel.tick();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Overflow));
}

TEST_F(Mixing, WithTwoHundredSongsTheLookAheadOfTheLastIsARangeError) {
  panel.add_songs(200);
  panel.select(199);
  controls.PLAY.click.raise();
  panel.sound.calls.clear();
  panel.tick();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_THAT(panel.sound.calls, IsEmpty());
  EXPECT_EQ(state.NextSongLoaded, kFalse);
}

TEST_F(Mixing, TheTimerDrivesItEveryTenMilliseconds) {
  play(3);
  panel.advance(10);
  EXPECT_EQ(state.NextSongLoaded, kTrue);
  controls.STOPBtn.click.raise();
  panel.advance(100);
  EXPECT_EQ(state.NextSongLoaded, kFalse);
}

TEST_F(Changeover, TheDecksSwapAndTheFinishedOneGetsTheSelectedSong) {
  play(3);
  panel.tick();
  position(0, 197501);
  panel.tick();
  panel.sound.calls.clear();
  panel.sound.mixer->end_input(0);
  EXPECT_THAT(panel.sound.calls, ElementsAre("AudioFile(0).FileName(/music/b.mp3)"));
  EXPECT_EQ(state.ActiveDeck, 1);
  EXPECT_EQ(controls.Slider1.maximum(), 199500);
  EXPECT_EQ(state.MixStarted, kFalse);
  EXPECT_EQ(state.NextSongLoaded, kFalse);
  panel.tick();
  EXPECT_EQ(panel.sound.deck[0]->FileName(), "/music/c.mp3");
}

TEST_F(Changeover, WithoutAMixTheSongIsLoadedAgainOnTheFinishedDeck) {
  play(3);
  panel.tick();
  panel.sound.mixer->end_input(0);  // shorter than the table says
  EXPECT_EQ(state.ActiveDeck, 1);
  EXPECT_EQ(panel.sound.deck[0]->FileName(), "/music/a.mp3");
  EXPECT_EQ(panel.program.sound.MixTimer->Interval(), 10);
}

TEST_F(Changeover, NextThatIsEnabledKeepsItsColour) {
  play(3);
  panel.sound.mixer->end_input(0);
  EXPECT_EQ(controls.NextBtn.BackColor, 0x0040C0);
}

TEST_F(Changeover, TheEndOfTheListStops) {
  play(1);
  panel.tick();
  panel.sound.calls.clear();
  panel.sound.mixer->end_input(0);
  EXPECT_THAT(panel.sound.calls, ElementsAre("AudioFile(0).FileName(/music/a.mp3)", "MixTimer.Interval(0)",
                                             "WaveMixer.Mute(0, True)", "WaveMixer.Mute(1, True)"));
  EXPECT_EQ(controls.PLAY.Picture, 0);
  EXPECT_EQ(state.CurrentSong, 1);
}

TEST_F(Changeover, WhileTheOtherInputSoundsTheListHasNotEnded) {
  play(2);
  panel.tick();
  position(0, 197501);
  panel.tick();
  panel.sound.mixer->end_input(0);
  EXPECT_EQ(panel.program.sound.MixTimer->Interval(), 10);
  panel.tick();
  panel.sound.mixer->end_input(1);
  EXPECT_EQ(panel.program.sound.MixTimer->Interval(), 0);
}

TEST_F(Changeover, AnUnrecoverableErrorOfTheOutputClosesIt) {
  panel.sound.output->device_lost.raise();
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveOut.close()"));
}

}  // namespace
}  // namespace tandem
