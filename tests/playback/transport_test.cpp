#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Transporting : PanelTest {
  void songs(int count) {
    panel.add_songs(count);
    panel.sound.calls.clear();
  }
  void play() { controls.PLAY.click.raise(); }
  void stop() { controls.STOPBtn.click.raise(); }
  void pause() { controls.PAUSE.click.raise(); }
  void next() { controls.NextBtn.click.raise(); }
  void tick_at(std::int32_t position) {  // of deck 0
    panel.sound.deck[0]->position = position;
    panel.tick();
  }
};

using Playing = Transporting;
using Pausing = Transporting;
using Stopping = Transporting;
using Skipping = Transporting;

TEST_F(Playing, AnEmptyListDoesNothing) {
  play();
  EXPECT_THAT(panel.sound.calls, IsEmpty());
  EXPECT_EQ(controls.PLAY.Picture, 0);
  EXPECT_EQ(state.CurrentSong, 0);
}

TEST_F(Playing, WithoutASelectionSongOneStartsAndIsSelected) {
  songs(3);
  play();
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("AudioFile(0).FileName(/music/a.mp3)", "WaveMixer.Mute(0, False)", "MixTimer.Interval(10)"));
  EXPECT_EQ(controls.PlayList.ListIndex(), 0);
  EXPECT_EQ(state.CurrentSong, 1);
  EXPECT_EQ(controls.Slider1.maximum(), 200000);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "03:20");
}

TEST_F(Playing, TheSelectedSongStartsOnDeckZero) {
  songs(3);
  panel.select(1);
  play();
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("AudioFile(0).FileName(/music/b.mp3)", "WaveMixer.Mute(0, False)", "MixTimer.Interval(10)"));
  EXPECT_EQ(state.CurrentSong, 2);
  EXPECT_EQ(controls.Slider1.maximum(), 199500);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "B.MP3");
}

TEST_F(Playing, InBothCasesThePanelIsPlaying) {
  songs(1);
  state.ActiveDeck = 1;
  state.NextSongLoaded = kTrue;
  play();
  EXPECT_EQ(state.ActiveDeck, 0);
  EXPECT_EQ(state.NextSongLoaded, kFalse);
  EXPECT_EQ(panel.program.sound.MixTimer->Interval(), 10);
  EXPECT_EQ(controls.PLAY.Picture, 1);
  EXPECT_EQ(controls.STOPBtn.Picture, 4);
}

TEST_F(Playing, PlayWhilePlayingMutesBothInputsFirst) {
  songs(3);
  play();
  panel.program.sound.WaveMixer->put_Mute(1, false);
  panel.sound.calls.clear();
  play();
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("WaveMixer.Mute(0, True)", "WaveMixer.Mute(1, True)", "AudioFile(0).FileName(/music/a.mp3)",
                          "WaveMixer.Mute(0, False)", "MixTimer.Interval(10)"));
}

TEST_F(Playing, MutedInputsAreNotMutedAgain) {
  songs(2);
  play();
  panel.sound.calls.clear();
  play();
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveMixer.Mute(0, True)", "AudioFile(0).FileName(/music/a.mp3)",
                                             "WaveMixer.Mute(0, False)", "MixTimer.Interval(10)"));
}

TEST_F(Playing, MixStartedAndPauseStay) {
  songs(2);
  state.MixStarted = kTrue;
  pause();
  play();
  EXPECT_EQ(state.MixStarted, kTrue);
  EXPECT_EQ(controls.PAUSE.BackColor, clYellow);
}

TEST_F(Playing, DuringAMixNoMixIsStartedForTheRestartedSongUntilStop) {
  songs(3);
  state.MixTimeMs = 2500;
  play();
  panel.tick();
  tick_at(199000);
  ASSERT_EQ(state.MixStarted, kTrue);
  panel.select(0);
  play();
  tick_at(199000);
  EXPECT_EQ(state.CurrentSong, 1);  // the mix point is passed, and nothing starts
  stop();
  play();
  tick_at(199000);
  EXPECT_EQ(state.CurrentSong, 2);
}

TEST_F(Playing, BeyondTheTableTheCommandEndsWithBothInputsMuted) {
  panel.add_songs(201);
  panel.select(0);
  play();
  panel.silent_errors.clear();
  panel.select(200);
  play();
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_TRUE(panel.sound.mixer->Mute(0));
  EXPECT_EQ(state.CurrentSong, 1);
}

TEST_F(Pausing, TheOutputPausesAndGoesOn) {
  pause();
  EXPECT_EQ(controls.PAUSE.BackColor, 0x00FFFF);
  EXPECT_EQ(controls.PAUSE.Picture, 3);
  pause();
  EXPECT_EQ(controls.PAUSE.BackColor, 0x008080);
  EXPECT_EQ(controls.PAUSE.Picture, 2);
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveOut.pause()", "WaveOut.restart()"));
}

TEST_F(Pausing, StopAndPlayLeaveTheOutputPaused) {
  songs(2);
  play();
  pause();
  stop();
  play();
  EXPECT_THAT(panel.sound.calls_of({"WaveOut"}), ElementsAre("WaveOut.pause()"));
  EXPECT_EQ(controls.PAUSE.BackColor, clYellow);
  pause();
  EXPECT_EQ(panel.sound.calls_of({"WaveOut"}).back(), "WaveOut.restart()");
}

TEST_F(Stopping, AlwaysAllOfItsSteps) {
  controls.Slider1.Position = 50;
  controls.LblPosition.Caption = "01:23";
  state.MixStarted = kTrue;
  state.NextSongLoaded = kTrue;
  stop();
  EXPECT_THAT(panel.sound.calls,
              ElementsAre("MixTimer.Interval(0)", "WaveMixer.Mute(0, True)", "WaveMixer.Mute(1, True)"));
  EXPECT_EQ(state.MixStarted, kFalse);
  EXPECT_EQ(state.NextSongLoaded, kFalse);
  EXPECT_EQ(controls.LblPosition.Caption.get(), "00:00");
  EXPECT_EQ(controls.PLAY.Picture, 0);
  EXPECT_EQ(controls.STOPBtn.Picture, 5);
  EXPECT_EQ(controls.Slider1.Position, 0);
}

TEST_F(Stopping, TitleTotalTimeSelectionAndDecksStay) {
  songs(3);
  panel.select(1);
  play();
  state.ActiveDeck = 1;
  stop();
  EXPECT_EQ(controls.SongLabel.Caption.get(), "B.MP3");
  EXPECT_EQ(controls.LblTempTot.Caption.get(), "03:19");
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
  EXPECT_EQ(state.CurrentSong, 2);
  EXPECT_EQ(state.ActiveDeck, 1);
  EXPECT_EQ(panel.sound.deck[0]->FileName(), "/music/b.mp3");
  EXPECT_TRUE(controls.NextBtn.Enabled);
}

TEST_F(Skipping, TheIdleDeckSoundsAtOnceAndTheCurrentSongRunsOut) {
  songs(3);
  play();
  panel.tick();
  panel.sound.calls.clear();
  next();
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveMixer.Mute(1, False)", "AudioFile(0).finish(4000)"));
  EXPECT_EQ(state.CurrentSong, 2);
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "B.MP3");
  EXPECT_EQ(state.ActiveDeck, 0);
  EXPECT_EQ(state.MixStarted, kFalse);
}

TEST_F(Skipping, TheButtonsStayDisabledUntilTheOutgoingSongHasEnded) {
  songs(3);
  play();
  panel.tick();
  next();
  EXPECT_FALSE(controls.NextBtn.Enabled);
  EXPECT_EQ(controls.NextBtn.BackColor, 0xC0C0C0);
  EXPECT_FALSE(controls.UpList.Enabled);
  EXPECT_FALSE(controls.DownList.Enabled);
  panel.sound.mixer->end_input(0);
  EXPECT_TRUE(controls.NextBtn.Enabled);
  EXPECT_EQ(controls.NextBtn.BackColor, 0xFF8080);
  EXPECT_TRUE(controls.UpList.Enabled);
  EXPECT_TRUE(controls.DownList.Enabled);
}

TEST_F(Skipping, OnTheLastSongWithNothingAfterTheSelectionItDoesNothing) {
  songs(2);
  panel.select(1);
  play();
  panel.sound.calls.clear();
  next();
  EXPECT_THAT(panel.sound.calls, IsEmpty());
  EXPECT_TRUE(controls.NextBtn.Enabled);
}

TEST_F(Skipping, OnTheLastSongWithAnEarlierSelectionItProceeds) {
  songs(2);
  panel.select(1);
  play();
  panel.tick();
  panel.select(0);
  next();
  EXPECT_EQ(state.CurrentSong, 2);
  EXPECT_FALSE(controls.NextBtn.Enabled);
  EXPECT_FALSE(panel.sound.mixer->Mute(1));
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);  // the line past the last is refused, which ends the command
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
}

TEST_F(Skipping, TheSelectionIsPutBackOnTheSoundingSong) {
  songs(4);
  play();
  panel.tick();
  panel.select(3);
  next();
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
}

TEST_F(Skipping, TheOutgoingDeckMayStillReachAMixPoint) {
  songs(4);
  play();
  panel.tick();
  panel.sound.deck[0]->position = 199000;  // later than song 2's length less the lead
  state.MixTimeMs = 2500;
  next();
  panel.tick();
  EXPECT_EQ(state.CurrentSong, 3);
  EXPECT_EQ(controls.PlayList.ListIndex(), 2);
  EXPECT_EQ(state.MixStarted, kTrue);
}

TEST_F(Skipping, DuringAMixTheSongShownIsNeverPlayed) {
  songs(4);
  state.MixTimeMs = 2500;
  play();
  panel.tick();
  tick_at(197501);  // b sounds on deck 1
  next();
  EXPECT_EQ(controls.SongLabel.Caption.get(), "C.MP3");
  EXPECT_EQ(state.CurrentSong, 3);
  panel.sound.mixer->end_input(0);
  panel.tick();
  EXPECT_EQ(panel.sound.deck[1]->FileName(), "/music/b.mp3");
  EXPECT_EQ(panel.sound.deck[0]->FileName(), "/music/d.mp3");
}

TEST_F(Skipping, BeforeAnythingHasPlayedGoesToTheFirstLine) {
  songs(2);
  next();
  EXPECT_EQ(state.CurrentSong, 1);
  EXPECT_EQ(controls.PlayList.ListIndex(), 0);
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveMixer.Mute(1, False)", "AudioFile(0).finish(4000)"));
}

}  // namespace
}  // namespace tandem
