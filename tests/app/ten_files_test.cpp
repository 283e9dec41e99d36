// Ten real files through the real window and a sound server, measured in the recording of its sink.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/real_player.h"
#include "base/natural_order.h"
#include "engine/core/frames.h"
#include "program/signatures.h"
#include "program/ten_songs.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

constexpr int kLead = 3500;  // milliseconds

// The factory settings with the longest lead.
std::string settings() {
  std::string text;
  std::vector<std::string> lines = lines_of(factory_settings());
  lines.at(kLeadLine) = std::to_string(kLead);
  for (const std::string& line : lines) text += " " + line + " \r\n";
  return text;
}

// In the order in which the list stands after they were chosen together.
std::vector<KnownSong> songs_of_the_list() {
  std::vector<KnownSong> songs = ten_songs();
  std::sort(songs.begin(), songs.end(),
            [](const KnownSong& a, const KnownSong& b) { return natural_less(a.path, b.path); });
  return songs;
}

double milliseconds_between(std::size_t from, std::size_t to) {
  return static_cast<double>(to - from) * 1000.0 / kSampleRate;
}

// Heard something, and then nothing for a second.
bool is_over(const std::vector<Sample16>& heard) {
  const auto sounds = [](Sample16 frame) { return std::abs(frame.left) > 2 || std::abs(frame.right) > 2; };
  const auto last = std::find_if(heard.rbegin(), heard.rend(), sounds);
  return last != heard.rend() && last - heard.rbegin() > kSampleRate;
}

TEST(TheProgramWithTenFiles, SoundsThemInOrderEachOverTheEndOfTheOneBefore) {
  Desktop desktop;
  desktop.sound.start();
  RealPlayer player(desktop, settings());
  ASSERT_TRUE(player.show_up()) << player.errors();
  const std::vector<KnownSong> songs = songs_of_the_list();
  std::string names;
  for (const KnownSong& song : songs) names += "\"" + song.path + "\" ";
  player.click(kSongKey);
  ASSERT_TRUE(player.dialog_shows_up());
  player.answer_dialog(names);
  ASSERT_TRUE(player.dialog_goes_away());
  desktop.sound.start_recording();
  player.click(kPlayKey);
  desktop.do_tool({"mousemove", "1900", "1000"});  // the user is away: the sound is queued far ahead
  ASSERT_TRUE(wait_until([&] { return is_over(desktop.sound.recording()); }, std::chrono::seconds(90)));

  const std::vector<Sample16> heard = desktop.sound.recording();
  SongFinder finder(heard);
  std::vector<std::size_t> starts;
  for (const KnownSong& song : songs) starts.push_back(finder.take(song.sound));
  // Half a step of rounding and up to one of dither where two songs sound.
  EXPECT_LE(finder.rest(), 1.6) << "something else than the ten songs whole, first at frame " << finder.first_rest();
  for (std::size_t k = 0; k + 1 < songs.size(); ++k) {
    const double length = static_cast<double>(milliseconds_of(static_cast<Frames>(songs[k].sound.size())));
    const double error = milliseconds_between(starts[k], starts[k + 1]) - (length - kLead);
    EXPECT_GT(error, 0.0) << songs[k].path;
    EXPECT_LE(error, 20.0) << songs[k].path;
  }
  player.click(kCloseKey);
  EXPECT_EQ(player.exit_status(), 0);
}

}  // namespace
}  // namespace tandem::test
