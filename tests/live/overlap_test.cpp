// How exactly the next song starts before the end of the one that is heard, in real time.
#include <gtest/gtest.h>

#include <algorithm>

#include "live/live_rig.h"
#include "program/signatures.h"

namespace tandem::test {
namespace {

constexpr int kLead = 280;  // milliseconds
constexpr std::size_t kFiles = 5;
constexpr double kPeak = 0.45;  // two songs at once stay below full scale

double to_milliseconds(std::int64_t frames) { return static_cast<double>(frames) * 1000 / kSampleRate; }

// How much later than the lead time says each song started, in milliseconds.
std::vector<double> errors_in(const std::vector<Sample16>& made, const std::vector<Sound>& songs, int changes) {
  SongFinder finder(made);
  std::vector<double> errors;
  std::size_t end = 0;
  for (int i = 0; i <= changes; ++i) {
    const Sound& song = songs[static_cast<std::size_t>(i) % kFiles];
    const std::size_t start = finder.take(song);
    if (i > 0)
      errors.push_back(kLead - to_milliseconds(static_cast<std::int64_t>(end) - static_cast<std::int64_t>(start)));
    end = start + song.size();
  }
  EXPECT_LE(finder.rest(), 1.0) << "at frame " << finder.first_rest();
  return errors;
}

// TANDEM_TEST_CHANGES: how many, up to what the song table holds.
TEST(LiveOverlap, StartsInTimeAndTheSumIsExact) {
  const int changes = std::min(count_from("TANDEM_TEST_CHANGES", 6), SongEntries::kLastSong - 1);
  LiveRig rig;
  rig.start_server();
  rig.choose_lead(kLead);
  std::vector<Sound> songs;
  for (int i = 0; i <= changes; ++i) {
    const std::string name = "song" + std::to_string(static_cast<std::size_t>(i) % kFiles) + ".wav";
    const auto seed = static_cast<unsigned>(i) + 1;
    if (songs.size() < kFiles) {
      songs.push_back(rig.add_song(name, signature(seed, 1.5 + 0.0137 * seed, kPeak)));
    } else {
      rig.add_again(name);
    }
  }
  rig.play();
  ASSERT_TRUE(rig.run_until([&] { return rig.sound().MixTimer->Interval() == 0; }, 3000 * (changes + 1)));
  auto errors = errors_in(rig.made(), songs, changes);
  std::sort(errors.begin(), errors.end());
  const double median = errors[errors.size() / 2];
  RecordProperty("changes", changes);
  RecordProperty("least_ms", std::to_string(errors.front()));
  RecordProperty("median_ms", std::to_string(median));
  RecordProperty("most_ms", std::to_string(errors.back()));
  // A tick every 10 ms looks at a position that moves by 10 ms, and the start waits for the next step; a thread that a
  // busy machine does not wake adds its sleep.
  const double held_up = static_cast<double>(rig.longest_pause());
  EXPECT_GE(errors.front(), 0.0);
  EXPECT_LE(errors.back(), 15.0 + std::max(0.0, held_up - 3));
  EXPECT_LT(median, 8.0 + std::max(0.0, held_up - 3));
}

}  // namespace
}  // namespace tandem::test
