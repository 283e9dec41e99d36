// The media player on the bus, as another program meets it.

#include <filesystem>

#include "desktop/desktop_rig.h"
#include "desktop/names.h"

namespace tandem::test {
namespace {

constexpr const char* kRoot = "org.mpris.MediaPlayer2";

class Mpris : public DesktopRig {
 protected:
  void SetUp() override {
    DesktopRig::SetUp();
    start();
  }
  std::string status() { return text_property(kPlayerInterface, "PlaybackStatus"); }
  // Plays the one song that there is; what that signals has come.
  void play_one_song() {
    panel_.add_songs(1);
    ASSERT_TRUE(signalled("CanPlay"));
    player_call("Play");
    ASSERT_TRUE(signalled("PlaybackStatus Metadata CanPause CanSeek"));
    take_signals();
  }
};

TEST_F(Mpris, StandsForTheProgram) {
  EXPECT_EQ(text_property(kRoot, "Identity"), "Tandem");
  EXPECT_EQ(text_property(kRoot, "DesktopEntry"), kApplicationName);
  EXPECT_EQ(call(kRoot, "Raise"), "");
  EXPECT_EQ(raises_, std::vector<std::string>{""});
  EXPECT_EQ(call(kRoot, "Quit"), "");
  EXPECT_EQ(quits_, 1);
}

TEST_F(Mpris, SaysWhatThePanelCan) {
  EXPECT_EQ(status(), "Stopped");
  for (const char* name : {"CanPlay", "CanPause", "CanGoNext", "CanGoPrevious", "CanSeek"})
    EXPECT_FALSE(flag(name)) << name;
  panel_.add_songs(2);
  EXPECT_TRUE(signalled("CanPlay"));
  EXPECT_EQ(player_call("Play"), "");
  for (const char* name : {"CanPlay", "CanPause", "CanGoNext", "CanSeek", "CanControl"})
    EXPECT_TRUE(flag(name)) << name;
  EXPECT_FALSE(flag("CanGoPrevious"));
}

TEST_F(Mpris, WorksTheTransport) {
  panel_.add_songs(2);
  EXPECT_EQ(player_call("PlayPause"), "");
  EXPECT_EQ(status(), "Playing");
  EXPECT_EQ(player_call("Pause"), "");
  EXPECT_EQ(status(), "Paused");
  EXPECT_EQ(panel_.controls.PAUSE.BackColor.get(), clYellow);
  EXPECT_EQ(player_call("Play"), "");
  EXPECT_EQ(status(), "Playing");
  EXPECT_EQ(player_call("Previous"), "");
  EXPECT_EQ(remote_.song(), TestPanel::song_path(0));
  panel_.tick();  // loads the next song
  EXPECT_EQ(player_call("Next"), "");
  EXPECT_EQ(remote_.song(), TestPanel::song_path(1));
  EXPECT_EQ(player_call("Stop"), "");
  EXPECT_EQ(status(), "Stopped");
}

TEST_F(Mpris, SignalsEveryChangeOnce) {
  panel_.add_songs(2);
  ASSERT_TRUE(signalled("CanPlay"));
  take_signals();
  panel_.controls.PLAY.click.raise();  // by the user
  ASSERT_TRUE(signalled("PlaybackStatus Metadata CanGoNext CanPause CanSeek"));
  EXPECT_EQ(take_signals().size(), 1U);
  panel_.controls.Volume.move(16384);
  ASSERT_TRUE(signalled("Volume"));
  EXPECT_EQ(take_signals().size(), 1U);
  panel_.controls.STOPBtn.click.raise();
  ASSERT_TRUE(signalled("PlaybackStatus Metadata CanGoNext CanPause CanSeek"));
  EXPECT_EQ(take_signals().size(), 1U);
}

TEST_F(Mpris, SeeksWithinTheSongAndSaysSo) {
  panel_.add_songs(2);
  player_call("Play");
  panel_.sound.deck[0]->position = 10'000;
  EXPECT_EQ(call(kPlayerInterface, "Seek", "x", nullptr, 5'000'000), "");
  EXPECT_TRUE(signalled("Seeked 15000000"));
  EXPECT_EQ(long_number("Position"), 15'000'000);
  call(kPlayerInterface, "Seek", "x", nullptr, -60'000'000);
  EXPECT_EQ(long_number("Position"), 0) << "not before the beginning";
  panel_.tick();  // loads the next song
  call(kPlayerInterface, "Seek", "x", nullptr, 600'000'000);
  EXPECT_EQ(remote_.song(), TestPanel::song_path(1)) << "beyond the end is the next song";
}

TEST_F(Mpris, SetsThePositionOfTheSongThatIsMeant) {
  panel_.add_songs(1);
  player_call("Play");
  call(kPlayerInterface, "SetPosition", "ox", "/org/tandem_player/Tandem/song/1", 20'000'000);
  EXPECT_EQ(long_number("Position"), 20'000'000);
  call(kPlayerInterface, "SetPosition", "ox", "/org/tandem_player/Tandem/song/7", 30'000'000);
  call(kPlayerInterface, "SetPosition", "ox", "/org/tandem_player/Tandem/song/1", -1);
  call(kPlayerInterface, "SetPosition", "ox", "/org/tandem_player/Tandem/song/1", 999'000'000);
  EXPECT_EQ(long_number("Position"), 20'000'000);
}

TEST_F(Mpris, SaysWhereTheUserHasSeekedTo) {
  play_one_song();
  panel_.controls.Slider1.user_press();
  panel_.controls.Slider1.move(1000);
  soon([] { return true; });
  panel_.controls.Slider1.user_release();
  EXPECT_TRUE(signalled("Seeked 1000000"));
  take_signals();
  remote_.seek_to(90'000);  // pressed, moved and let go within one event, as a notch of the wheel
  EXPECT_TRUE(signalled("Seeked 90000000"));
  take_signals();
  remote_.seek_to(91'000);  // by less than a gulp of sound
  EXPECT_TRUE(signalled("Seeked 91000000"));
}

TEST_F(Mpris, SaysNothingOfASeekThatIsNotDone) {
  play_one_song();
  panel_.controls.Slider1.user_press();
  EXPECT_EQ(call(kPlayerInterface, "Seek", "x", nullptr, 5'000'000), "");
  EXPECT_EQ(call(kPlayerInterface, "SetPosition", "ox", "/org/tandem_player/Tandem/song/1", 20'000'000), "");
  meanwhile([](sd_bus*) {});
  EXPECT_EQ(take_signals(), std::vector<std::string>());
}

TEST_F(Mpris, GivesEveryLineATrackOfItsOwn) {
  panel_.add_song("/music/a.mp3", 61'000);
  panel_.add_song("/music/a.mp3", 61'000);
  player_call("Play");
  const std::string first = metadata()["mpris:trackid"];
  panel_.tick();  // loads the next song
  player_call("Next");
  EXPECT_EQ(metadata()["xesam:url"], "file:///music/a.mp3");
  EXPECT_NE(metadata()["mpris:trackid"], first);
}

TEST_F(Mpris, KeepsQuietWhileTheSongJustGoesOn) {
  play_one_song();
  for (int second = 1; second <= 30; ++second) {
    now_ = second * 1000;
    panel_.sound.deck[0]->position = second * 1000 + 1500 * (second % 2);  // in gulps
    soon([] { return true; });
  }
  meanwhile([](sd_bus*) {});
  EXPECT_EQ(take_signals(), std::vector<std::string>());
}

TEST_F(Mpris, TurnsTheVolume) {
  meanwhile([](sd_bus* bus) {
    sd_bus_set_property(bus, kMprisName, kMprisObject, kPlayerInterface, "Volume", nullptr, "d", 0.25);
  });
  EXPECT_EQ(panel_.controls.Volume.value(), 8192);
  EXPECT_TRUE(signalled("Volume"));
  EXPECT_EQ(number("Volume"), 0.25);
}

TEST_F(Mpris, TakesARateOfNothingForAPause) {
  panel_.add_songs(1);
  player_call("Play");
  meanwhile([](sd_bus* bus) {
    sd_bus_set_property(bus, kMprisName, kMprisObject, kPlayerInterface, "Rate", nullptr, "d", 0.0);
  });
  EXPECT_EQ(status(), "Paused");
  EXPECT_EQ(number("Rate"), 1);
}

TEST_F(Mpris, OpensFilesOfThisMachineAlone) {
  panel_.sound.files.lengths["/music/a b.mp3"] = 60'000;
  EXPECT_EQ(call(kPlayerInterface, "OpenUri", "s", "file:///music/a%20b.mp3"), "");
  EXPECT_EQ(drops_, (std::vector<std::vector<std::string>>{{"/music/a b.mp3"}}));
  EXPECT_EQ(status(), "Playing");
  EXPECT_EQ(call(kPlayerInterface, "OpenUri", "s", "http://example.org/a.mp3"),
            "org.freedesktop.DBus.Error.InvalidArgs");
  EXPECT_EQ(drops_.size(), 1U);
}

TEST_F(Mpris, NamesTheSongAsThePanelDoes) {
  panel_.add_song("/music/Side A/Caf\xE9 1.mp3", 61'000);  // a name of bytes that are no text
  player_call("Play");
  EXPECT_EQ(metadata(), (std::map<std::string, std::string>{{"mpris:trackid", "/org/tandem_player/Tandem/song/1"},
                                                            {"mpris:length", "61000000"},
                                                            {"xesam:title", "CAF\xEF\xBF\xBD 1.MP3"},
                                                            {"xesam:url", "file:///music/Side%20A/Caf%E9%201.mp3"}}));
  EXPECT_EQ(names_.back(), "CAF\xE9 1.MP3");
  player_call("Stop");
  EXPECT_EQ(names_.back(), "");
}

TEST_F(Mpris, GivesASecondPlayerANameOfItsOwn) {
  TestPanel second_panel;
  PanelRemote second_remote(second_panel.program, {[] {}, [](const std::vector<std::string>&) {}, {}});
  DesktopServices second(second_remote, {[](const std::string&) {}, [] {}, [](const std::string&) {}});
  const std::string name = std::string(kMprisName) + ".instance" + std::to_string(::getpid());
  meanwhile([&](sd_bus* bus) {
    EXPECT_TRUE(wait_until([&] { return sd_bus_get_name_creds(bus, name.c_str(), 0, nullptr) >= 0; }));
  });
}

// The session that media keys make.
TEST_F(Mpris, IsWorkedByPlayerctl) {
  if (!std::filesystem::exists("/usr/bin/playerctl")) GTEST_SKIP() << "playerctl is not installed";
  panel_.add_songs(2);
  const auto playerctl = [this](std::vector<std::string> words) {
    words.insert(words.begin(), "playerctl");
    return output_of(words);
  };
  EXPECT_TRUE(playerctl({"--list-all"}).starts_with("tandem\n"));
  EXPECT_EQ(playerctl({"status"}), "Stopped\n");
  EXPECT_EQ(playerctl({"play-pause"}), "");
  EXPECT_EQ(playerctl({"status"}), "Playing\n");
  EXPECT_EQ(playerctl({"metadata", "title"}), "A.MP3\n");
  EXPECT_EQ(playerctl({"metadata", "--format", "{{duration(mpris:length)}}"}), "3:20\n");
  EXPECT_EQ(playerctl({"position", "30"}), "");
  EXPECT_TRUE(playerctl({"position"}).starts_with("30.0")) << "it adds the time since it asked";
  EXPECT_EQ(playerctl({"volume", "0.5"}), "");
  EXPECT_EQ(playerctl({"volume"}), "0.500000\n");
  panel_.tick();  // loads the next song
  EXPECT_EQ(playerctl({"next"}), "");
  EXPECT_EQ(playerctl({"metadata", "xesam:url"}), "file:///music/b.mp3\n");
  EXPECT_EQ(playerctl({"pause"}), "");
  EXPECT_EQ(playerctl({"status"}), "Paused\n");
  EXPECT_EQ(playerctl({"stop"}), "");
  EXPECT_EQ(playerctl({"status"}), "Stopped\n");
}

}  // namespace
}  // namespace tandem::test
