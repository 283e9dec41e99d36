#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;
using testing::IsEmpty;

struct Synchronising : PanelTest {
  bool list_timer() { return panel.program.sound.ListTimer->Enabled(); }
};

TEST_F(Synchronising, AfterAMoveTheSelectionJumpsBackToTheAudibleSong) {
  panel.add_songs(4);
  panel.select(1);
  controls.PLAY.click.raise();  // b sounds
  panel.select(3);
  controls.UpList.click.raise();
  controls.UpList.click.raise();  // d stands in front of b
  panel.advance(2490);
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
  panel.advance(10);
  EXPECT_EQ(controls.PlayList.ListIndex(), 2);
  EXPECT_EQ(state.CurrentSong, 3);
  EXPECT_TRUE(controls.NextBtn.Enabled);
  EXPECT_FALSE(list_timer());
}

TEST_F(Synchronising, TheTimeRunsFromTheLastEdit) {
  panel.add_songs(3);
  panel.select(0);
  controls.PLAY.click.raise();
  controls.DownList.click.raise();
  panel.advance(2000);
  controls.DownList.click.raise();
  panel.advance(2000);
  EXPECT_FALSE(controls.NextBtn.Enabled);
  panel.advance(500);
  EXPECT_TRUE(controls.NextBtn.Enabled);
  EXPECT_EQ(state.CurrentSong, 3);
}

TEST_F(Synchronising, WorksAfterARemovalToo) {
  panel.add_songs(4);
  panel.select(2);
  controls.PLAY.click.raise();
  controls.PlayList.user_double_click(0);
  EXPECT_EQ(state.CurrentSong, 2);
  panel.advance(2500);
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
  EXPECT_EQ(state.CurrentSong, 2);
}

TEST_F(Synchronising, EverythingIsEnabledAndTheNextSongLoadedAgain) {
  panel.add_songs(3);
  controls.PLAY.click.raise();
  for (Control* control : {static_cast<Control*>(&controls.UpList), static_cast<Control*>(&controls.DownList),
                           static_cast<Control*>(&controls.PlayList), static_cast<Control*>(&controls.NextBtn)})
    control->Enabled = false;
  state.NextSongLoaded = kTrue;
  panel.program.sound.ListTimer->tick.raise();
  EXPECT_TRUE(controls.UpList.Enabled);
  EXPECT_TRUE(controls.DownList.Enabled);
  EXPECT_TRUE(controls.PlayList.Enabled);
  EXPECT_TRUE(controls.NextBtn.Enabled);
  EXPECT_EQ(state.NextSongLoaded, kFalse);
}

TEST_F(Synchronising, TheFirstLineOfAnAudibleFileIsTaken) {
  panel.add_songs(3);
  panel.program.sound.AudioFile[0]->put_FileName(" /music/c.mp3 ");  // blanks at the ends don't count
  panel.program.sound.AudioFile[1]->put_FileName("/music/b.mp3");
  panel.program.sound.WaveMixer->put_Mute(0, false);
  panel.program.sound.WaveMixer->put_Mute(1, false);
  panel.program.sound.ListTimer->tick.raise();
  EXPECT_EQ(controls.PlayList.ListIndex(), 1);
}

TEST_F(Synchronising, AMutedDeckIsNotAudible) {
  panel.add_songs(3);
  panel.program.sound.AudioFile[0]->put_FileName("/music/a.mp3");
  panel.program.sound.AudioFile[1]->put_FileName("/music/c.mp3");
  panel.program.sound.WaveMixer->put_Mute(1, false);
  panel.program.sound.ListTimer->tick.raise();
  EXPECT_EQ(controls.PlayList.ListIndex(), 2);
}

TEST_F(Synchronising, WithoutAnAudibleSongAndASelectionThePutIsRefusedAndTheTimerStaysOn) {
  panel.add_songs(3);
  panel.select(1);
  controls.UpList.click.raise();
  panel.advance(2500);
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Range));
  EXPECT_EQ(controls.PlayList.ListIndex(), 0);
  EXPECT_FALSE(controls.NextBtn.Enabled);
  EXPECT_TRUE(list_timer());
  controls.PLAY.click.raise();  // once a song sounds the next attempt succeeds
  panel.advance(2500);
  EXPECT_TRUE(controls.NextBtn.Enabled);
  EXPECT_FALSE(list_timer());
}

TEST_F(Synchronising, WithoutAnAudibleSongAndASelectionNothingButTheTimerChanges) {
  panel.add_songs(3);
  state.NextSongLoaded = kTrue;
  panel.program.sound.ListTimer->put_Enabled(true);
  panel.advance(2500);
  EXPECT_EQ(controls.PlayList.ListIndex(), -1);
  EXPECT_EQ(state.NextSongLoaded, kTrue);
  EXPECT_FALSE(list_timer());
  EXPECT_THAT(panel.silent_errors, IsEmpty());
}

TEST_F(Synchronising, LinesOfThreeDigitsAreFoundToo) {
  panel.add_songs(101);
  panel.program.sound.AudioFile[0]->put_FileName(test::TestPanel::song_path(100));
  panel.program.sound.WaveMixer->put_Mute(0, false);
  panel.program.sound.ListTimer->tick.raise();
  EXPECT_EQ(controls.PlayList.ListIndex(), 100);
  EXPECT_EQ(state.CurrentSong, 101);
}

}  // namespace
}  // namespace tandem
