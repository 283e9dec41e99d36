#include "desktop/panel_remote.h"

#include <gtest/gtest.h>

#include "fakes/test_panel.h"

namespace tandem::test {
namespace {

using Motion = PanelRemote::Motion;

class Remote : public testing::Test {
 protected:
  TestPanel panel;
  int acts = 0;
  std::vector<std::vector<std::string>> drops;
  bool adds_later = false;
  PanelRemote remote{panel.program,
                     {[this] { ++acts; },
                      [this](const std::vector<std::string>& paths) {
                        drops.push_back(paths);
                        if (!adds_later) add_dropped();
                      },
                      [this] { return adds_later; }}};

  void add_dropped() {
    for (const std::string& path : drops.back()) {
      panel.sound.files.lengths[path] = 100'000;
      panel.controls.Painel.files_dropped.raise(path);
    }
  }
  void end_input(int input) { panel.sound.mixer->end_input(input); }
};

TEST_F(Remote, OfAnEmptyPanelDoesNothing) {
  panel.sound.calls.clear();
  EXPECT_FALSE(remote.can_play());
  for (auto act :
       {&PanelRemote::play, &PanelRemote::pause, &PanelRemote::play_pause, &PanelRemote::stop, &PanelRemote::next})
    (remote.*act)();
  remote.seek_to(1000);
  EXPECT_EQ(remote.motion(), Motion::Stopped);
  EXPECT_EQ(panel.sound.calls_of({"WaveOut", "WaveMixer", "AudioFile(0)"}), std::vector<std::string>());
}

TEST_F(Remote, StartsPausesGoesOnAndStops) {
  panel.add_songs(2);
  remote.play();
  EXPECT_EQ(remote.motion(), Motion::Playing);
  EXPECT_EQ(remote.song(), TestPanel::song_path(0));
  EXPECT_EQ(remote.length(), TestPanel::song_length(0));
  panel.sound.files.lengths[TestPanel::song_path(0)] = 7;
  EXPECT_EQ(remote.length(), TestPanel::song_length(0)) << "the deck, which would have to read its file, is not asked";
  panel.sound.deck[0]->position = 4321;
  EXPECT_EQ(remote.position(), 4321);
  remote.play();
  EXPECT_EQ(remote.position(), 4321) << "a song that plays goes on";
  remote.play_pause();
  EXPECT_EQ(remote.motion(), Motion::Paused);
  remote.pause();
  EXPECT_EQ(remote.motion(), Motion::Paused);
  remote.play();
  EXPECT_EQ(remote.motion(), Motion::Playing);
  EXPECT_EQ(remote.position(), 4321);
  remote.stop();
  EXPECT_EQ(remote.motion(), Motion::Stopped);
  EXPECT_EQ(remote.song(), "");
  EXPECT_EQ(remote.position(), 0);
}

// The panel itself would start the song in silence.
TEST_F(Remote, PlayAfterPauseAndStopSounds) {
  panel.add_songs(1);
  remote.play();
  remote.pause();
  remote.stop();
  remote.play();
  EXPECT_EQ(remote.motion(), Motion::Playing);
}

TEST_F(Remote, ActsLikeTheUserOnTheKey) {
  std::string events;
  Button& key = panel.controls.LoadSong;
  key.press.connect([&] { events += "press "; });
  key.click.connect([&] { events += "click "; });
  key.release.connect([&] { events += "release"; });
  remote.click(key);
  EXPECT_EQ(events, "press click release");
  EXPECT_EQ(acts, 2) << "before and after it";
  key.Enabled = false;
  remote.click(key);
  EXPECT_EQ(events, "press click release");
}

TEST_F(Remote, GoesToTheNextSongOnlyWhereOneFollows) {
  panel.add_songs(2);
  remote.next();
  EXPECT_EQ(remote.motion(), Motion::Stopped) << "the key would play one song and show Stop";
  remote.play();
  EXPECT_TRUE(remote.can_go_next());
  panel.tick();
  remote.next();
  EXPECT_EQ(remote.song(), TestPanel::song_path(1)) << "of two that sound the one that comes in";
  EXPECT_FALSE(remote.can_go_next());
  EXPECT_FALSE(remote.can_seek()) << "the panel's slider stands for the one that goes out";
  end_input(0);
  EXPECT_EQ(remote.song(), TestPanel::song_path(1));
  EXPECT_TRUE(remote.can_seek());
  EXPECT_FALSE(remote.can_go_next()) << "it is the last";
}

TEST_F(Remote, SeeksByTheSlider) {
  panel.add_songs(1);
  remote.play();
  std::string events;
  Slider& slider = panel.controls.Slider1;
  slider.press.connect([&] { events += "press "; });
  slider.change.connect([&] { events += "change "; });
  slider.release.connect([&] { events += "release "; });
  remote.seek_to(60'000);
  EXPECT_EQ(events, "press change release ");
  EXPECT_EQ(slider.value(), 60'000);
  EXPECT_FALSE(remote.seek_to(-1));
  EXPECT_FALSE(remote.seek_to(TestPanel::song_length(0) + 1));
  EXPECT_EQ(slider.value(), 60'000);
}

TEST_F(Remote, LeavesTheSliderToTheUserWhoHoldsIt) {
  panel.add_songs(1);
  remote.play();
  panel.controls.Slider1.user_press();
  EXPECT_FALSE(remote.seek_to(60'000));
  EXPECT_EQ(panel.controls.Slider1.value(), 0);
  EXPECT_EQ(remote.seeks(), 0U);
  panel.controls.Slider1.user_release();
  EXPECT_EQ(remote.seeks(), 1U);
}

TEST_F(Remote, TurnsTheVolume) {
  remote.put_volume(0.5);
  EXPECT_EQ(panel.controls.Volume.value(), 16384);
  EXPECT_EQ(remote.volume(), 0.5);
  remote.put_volume(7);
  EXPECT_EQ(panel.controls.Volume.value(), 32768);
  remote.put_volume(-1);
  EXPECT_EQ(panel.controls.Volume.value(), 0);
  remote.put_volume(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(panel.controls.Volume.value(), 0);
}

TEST_F(Remote, PlaysWhatItOpensWhereNothingSounds) {
  panel.add_songs(2);
  remote.add_and_play({"/music/new.mp3"});
  EXPECT_EQ(remote.song(), "/music/new.mp3");
  remote.add_and_play({"/music/other.mp3"});
  EXPECT_EQ(remote.song(), "/music/new.mp3");
  EXPECT_EQ(panel.controls.PlayList.ListCount(), 4);
}

TEST_F(Remote, PlaysWhatIsAddedLaterThanAskedFor) {
  adds_later = true;
  remote.add_and_play({"/music/new.mp3"});
  remote.play_awaited();
  EXPECT_EQ(remote.motion(), Motion::Stopped);
  add_dropped();
  adds_later = false;
  remote.play_awaited();
  EXPECT_EQ(remote.song(), "/music/new.mp3");
}

// A file that is refused, a folder without songs, a full list: what the user adds later is not what was to be played.
TEST_F(Remote, WaitsNoLongerForWhatIsNotAdded) {
  adds_later = true;
  remote.add_and_play({"/music/refused.txt"});
  remote.play_awaited();
  adds_later = false;
  remote.play_awaited();
  panel.add_songs(1);
  remote.play_awaited();
  EXPECT_EQ(remote.motion(), Motion::Stopped);
}

TEST_F(Remote, PlaysASavedListFromItsFirstLine) {
  panel.add_songs(2);
  adds_later = true;
  remote.add_and_play({"/music/Evening.M3L"});
  remote.play_awaited();
  EXPECT_EQ(remote.motion(), Motion::Stopped);
  adds_later = false;
  remote.play_awaited();
  EXPECT_EQ(remote.song(), TestPanel::song_path(0));
}

}  // namespace
}  // namespace tandem::test
