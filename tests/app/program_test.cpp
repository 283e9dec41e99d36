// The program itself: started, played by mouse and keys, heard in a recording of the sound server, and ended.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/real_player.h"
#include "app/tone_times.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

constexpr double kSongSeconds = 2.4;
constexpr double kTones[] = {800, 2000, 3200};  // apart by whole multiples of the analysis window's resolution
constexpr double kMeasured = 0.001;             // seconds, what a difference of two ends is exact to

std::string settings_with(std::size_t line, const std::string& value) {
  std::string text;
  std::vector<std::string> lines = lines_of(factory_settings());
  lines.at(line) = value;
  for (const std::string& each : lines) text += " " + each + " \r\n";
  return text;
}

class TheProgram : public testing::Test {
 protected:
  void start(const std::string& settings = factory_settings()) {
    player = std::make_unique<RealPlayer>(desktop, settings);
  }
  void start_and_show(const std::string& settings = factory_settings()) {
    start(settings);
    ASSERT_TRUE(player->show_up()) << player->errors();
  }
  // The names of songs in the form in which they are typed.
  std::string write_songs() const {
    std::string names;
    for (int i = 0; i < 3; ++i)
      names += "\"" + player->write_song("song " + std::to_string(i + 1) + ".wav", kTones[i], kSongSeconds) + "\" ";
    return names;
  }
  void answer(const std::string& text) {
    ASSERT_TRUE(player->dialog_shows_up());
    player->answer_dialog(text);
    ASSERT_TRUE(player->dialog_goes_away());
  }
  bool hears(double hertz) const {
    return wait_until([&] { return find_tone(desktop.sound.recording(), hertz).has_value(); });
  }
  bool has_gone_silent() const {
    return wait_until([this] {
      const std::vector<Sample16> heard = desktop.sound.recording();
      const auto last = find_tone(heard, kTones[2]);
      return last && last->end + 0.5 < static_cast<double>(heard.size()) / 44100;
    });
  }
  void set_two_bands_by_keys() const {
    player->key("F2");
    for (int i = 0; i < 19; ++i) player->key("Tab");  // to PLAY, and on to the equalizer
    for (const char* key : {"Up", "Up", "Right", "Next", "F2"}) player->key(key);
  }
  // Ended by a signal, it has saved the volume, which is one notch lower than at first.
  void expect_volume_saved_at(int signal) {
    player->send(signal);
    EXPECT_EQ(player->exit_status(), 0);
    EXPECT_EQ(player->errors(), "");
    EXPECT_EQ(lines_of(player->settings()).at(kVolumeLine), std::to_string(32768 - 328));
  }
  void expect_songs_in(const std::string& list) const {
    std::stringstream content;
    content << std::ifstream(list).rdbuf();
    for (const char* song : {"song 1.wav", "song 2.wav", "song 3.wav"})
      EXPECT_NE(content.str().find(player->file(song)), std::string::npos) << content.str();
  }

  Desktop desktop;
  std::unique_ptr<RealPlayer> player;
};

// With a lead of 1 s each song begins 1 s before the end of the one before it, which is heard to its end.
TEST_F(TheProgram, PlaysThreeSongsThatOverlap) {
  constexpr double kLead = 1.0;
  desktop.sound.start();
  start_and_show(settings_with(kLeadLine, "1000"));
  const std::string names = write_songs();
  player->click(kSongKey);
  answer(names);
  desktop.sound.start_recording();
  player->click(kPlayKey);
  ASSERT_TRUE(hears(kTones[2]));
  ASSERT_TRUE(has_gone_silent());
  const std::vector<Sample16> heard = desktop.sound.recording();
  std::optional<ToneTimes> before;
  for (const double tone : kTones) {
    const auto now = find_tone(heard, tone);
    ASSERT_TRUE(now);
    EXPECT_NEAR(now->end - now->begin, kSongSeconds, 0.005) << "whole at " << tone;
    if (before) {
      const double late = now->begin - before->begin - (kSongSeconds - kLead);
      EXPECT_GE(late, 0 - kMeasured) << tone;
      EXPECT_LE(late, 0.020 + kMeasured) << tone;
    }
    before = now;
  }
  player->click(kCloseKey);
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_EQ(player->errors(), "");
  EXPECT_EQ(lines_of(player->settings()).at(kLeadLine), "1000");
}

TEST_F(TheProgram, IsUsedByTheKeyboardAlone) {
  desktop.sound.start();
  start_and_show();
  const std::string names = write_songs();
  player->key("ctrl+o");
  answer(names);
  desktop.sound.start_recording();
  ASSERT_TRUE(player->play());
  EXPECT_TRUE(hears(kTones[0]));
  set_two_bands_by_keys();
  const std::string list = player->file("evening");
  player->key("ctrl+s");
  answer(list);
  EXPECT_TRUE(wait_until([&] { return std::filesystem::exists(list + ".m3l"); }));
  player->key("ctrl+q");
  EXPECT_EQ(player->exit_status(), 0);
  EXPECT_EQ(player->errors(), "");
  const std::vector<std::string> saved = lines_of(player->settings());
  EXPECT_EQ(saved.at(0), "2");
  EXPECT_EQ(saved.at(1), "-3");
  EXPECT_EQ(saved.at(2), "0");
  expect_songs_in(list + ".m3l");
  for (const auto& kept : std::filesystem::recursive_directory_iterator(desktop.home().path()))
    ADD_FAILURE() << "the program keeps nothing but its settings: " << kept.path();

  const std::unique_ptr<RealPlayer> first = std::move(player);  // its folder holds the list and the songs
  start_and_show(first->settings());
  player->key("ctrl+l");
  answer(list + ".m3l");
  desktop.sound.start_recording();
  ASSERT_TRUE(player->play());
  EXPECT_TRUE(hears(kTones[0]));
  EXPECT_TRUE(hears(kTones[2]));
  player->key("ctrl+q");
  EXPECT_EQ(player->exit_status(), 0);
}

TEST_F(TheProgram, ATermSignalWhilePlayingSavesTheSettings) {
  desktop.sound.start();
  start_and_show();
  player->click(kSongKey);
  answer('"' + player->write_song("one.wav", kTones[0], 20) + '"');
  player->click(kVolumeWheel, 5);  // one notch down
  desktop.sound.start_recording();
  ASSERT_TRUE(player->play());
  ASSERT_TRUE(hears(kTones[0]));
  expect_volume_saved_at(SIGTERM);
}

TEST_F(TheProgram, ATermSignalWithAnOpenDialogSavesTheSettingsToo) {
  start_and_show();
  player->click(kVolumeWheel, 5);
  player->click(kSongKey);
  ASSERT_TRUE(player->dialog_shows_up());
  expect_volume_saved_at(SIGTERM);
}

TEST_F(TheProgram, SoundsAsSoonAsThereIsASoundServer) {
  start_and_show();
  player->click(kSongKey);
  answer('"' + player->write_song("one.wav", kTones[0], 20) + '"');
  ASSERT_TRUE(player->play());
  desktop.sound.start();
  desktop.sound.start_recording();
  EXPECT_TRUE(hears(kTones[0]));
  player->key("ctrl+q");
  EXPECT_EQ(player->exit_status(), 0);
}

TEST_F(TheProgram, ChangesItsSizeOnTheScreen) {
  start_and_show();
  player->click(kDisplayPanel);
  EXPECT_TRUE(wait_until([this] { return player->panel_width() == 262; }));
  player->key("ctrl+m");
  EXPECT_TRUE(wait_until([this] { return player->panel_width() == 607; }));
  player->send(SIGINT);
  EXPECT_EQ(player->exit_status(), 0);
}

TEST_F(TheProgram, IsDraggedByItsHead) {
  start_and_show();
  const std::pair<int, int> place = player->place();
  player->drag(300, 7, 57, 33);
  EXPECT_TRUE(wait_until([&] { return player->place() == std::pair(place.first + 57, place.second + 33); }));
  player->click(kDisplayPanel);  // small, in its place
  EXPECT_TRUE(wait_until([this] { return player->panel_width() == 262; }));
  EXPECT_EQ(player->place(), std::pair(place.first + 57, place.second + 33));
}

TEST_F(TheProgram, SaysThatThereIsNoDisplay) {
  ::unsetenv("DISPLAY");
  ::unsetenv("QT_QPA_PLATFORM");
  start();
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_EQ(player->errors(), "tandem: There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set.\n");
}

// A server that was there when the session was set up.
TEST_F(TheProgram, SaysThatTheDisplayDoesNotAnswer) {
  ::setenv("DISPLAY", ":64999", 1);
  ::unsetenv("QT_QPA_PLATFORM");
  start();
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_EQ(player->errors(), "tandem: There is no display: could not connect to display :64999\n");
  EXPECT_EQ(player->settings(), factory_settings());
}

TEST_F(TheProgram, SaysThatTheWaylandDisplayDoesNotAnswer) {
  ::unsetenv("DISPLAY");
  ::unsetenv("QT_QPA_PLATFORM");
  ::setenv("WAYLAND_DISPLAY", desktop.home().file("none").c_str(), 1);
  start();
  ::unsetenv("WAYLAND_DISPLAY");
  EXPECT_EQ(player->exit_status(), 1);
  const std::string errors = player->errors();
  EXPECT_TRUE(errors.starts_with("tandem: There is no display: ")) << errors;
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

std::string overflowing() { return settings_with(kLeadLine, "40000"); }

TEST_F(TheProgram, SettingsThatDoNotFitAreReportedInABox) {
  start(overflowing());
  ASSERT_TRUE(player->dialog_shows_up());
  player->dialog_key("Return");
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_EQ(player->errors(), "tandem: Overflow: " + player->file("TP.inf") + ", line 35\n");
  EXPECT_EQ(player->settings(), overflowing());
}

TEST_F(TheProgram, SettingsThatDoNotFitAreReportedWhereTheDisplayDoesNotAnswer) {
  ::setenv("DISPLAY", ":64999", 1);
  start(overflowing());
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_EQ(player->errors(), "tandem: Overflow: " + player->file("TP.inf") + ", line 35\n");
}

TEST_F(TheProgram, SettingsThatDoNotFitAreReportedWithoutADisplay) {
  ::unsetenv("DISPLAY");
  start(overflowing());
  EXPECT_EQ(player->exit_status(), 1);
  EXPECT_EQ(player->errors(), "tandem: Overflow: " + player->file("TP.inf") + ", line 35\n");
}

}  // namespace
}  // namespace tandem::test
