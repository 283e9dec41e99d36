// The disk hangs under the songs while they play, with the player's own threads: the panel goes on, and so does the
// sound as long as there is something to play.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <span>

#include "faults/failing_disk.h"
#include "faults/measured.h"
#include "live/live_rig.h"
#include "program/signatures.h"

namespace tandem::test {
namespace {

constexpr int kStallLead = 1000;  // milliseconds
constexpr double kStallPeak = 0.45;
// A thread that should look every millisecond; a busy machine may keep it so long. A disk would for 500 ms and more.
constexpr Milliseconds kPrompt = 200;

class LiveStalledDisk : public testing::TestWithParam<int> {  // for how many milliseconds
 protected:
  void add(double seconds) {
    const auto seed = static_cast<unsigned>(songs_.size()) + 1;
    songs_.push_back(rig_.add_song("song" + std::to_string(seed) + ".wav", signature(seed, seconds, kStallPeak)));
  }
  void start() {
    rig_.server.start();
    rig_.choose_lead(kStallLead);
    rig_.play();
  }
  // `must_be_asked`: the stall is long enough for a reader that looks for more every 0.7 s.
  void stall(bool must_be_asked) {
    FailingDisk disk(rig_.folder());
    disk.hang();
    rig_.run(GetParam());
    EXPECT_TRUE(disk.waiting() > 0 || !must_be_asked);
    disk.go_on();
  }
  // How long nothing was to be heard in the list, in milliseconds; every song was heard whole.
  int dead_air() {
    EXPECT_TRUE(rig_.run_until([this] { return rig_.sound().MixTimer->Interval() == 0; }, 60'000));
    SongFinder finder(rig_.made());
    std::size_t begin = 0;
    std::size_t end = 0;
    for (const Sound& song : songs_) {
      const std::size_t start = finder.take(song);
      if (end == 0) begin = start;
      end = start + song.size();
    }
    EXPECT_LE(finder.rest(), 1.0) << "at frame " << finder.first_rest();
    return static_cast<int>(longest_silence(rig_.made(), begin, end) * 1000 / kSampleRate);
  }
  void judge(const std::string& when, int most) {
    const int silent = dead_air();
    EXPECT_LE(silent, most);
    EXPECT_LE(rig_.longest_pause(), kPrompt);
    record_fault(
        "with threads: disk stalled for " + std::to_string(GetParam()) + " ms " + when,
        "dead air at most " + std::to_string(most) + " ms, the panel never waits",
        std::to_string(silent) + " ms, panel held for at most " + std::to_string(rig_.longest_pause()) + " ms");
  }

  LiveRig rig_;
  std::vector<Sound> songs_;
};

TEST_P(LiveStalledDisk, WhileASongPlaysIsNotHeard) {
  add(12);
  add(2);
  start();
  rig_.run(2000);
  stall(GetParam() > 1000);
  judge("while a song plays", 0);
}

// The next song is loaded when the one before has ended, a lead after its own beginning.
TEST_P(LiveStalledDisk, BeforeASongsTurnCostsNoMoreThanTheStall) {
  for (int i = 0; i < 3; ++i) add(3);
  start();
  ASSERT_TRUE(rig_.run_until([this] { return rig_.current_song() == 2; }));
  rig_.run(kStallLead - 100);
  stall(true);
  judge("before a song's turn", std::max(GetParam() - 2000, 0));
}

// The first song's reads never return. Its deck has the third one, from a disk that works.
TEST(LiveDeadDisk, CostsItsOwnSongOnly) {
  LiveRig rig;
  const std::string dead = rig.folder() + "/dead";
  std::filesystem::create_directory(dead);
  rig.add_song("dead/1.wav", signature(1, 20, kPeak));
  const Sound second = rig.add_song("2.wav", signature(2, 4, kPeak));
  const Sound third = rig.add_song("3.wav", signature(3, 3, kPeak));
  rig.server.start();
  rig.choose_lead(kLead);
  rig.play();
  rig.run(1000);
  FailingDisk disk(dead);
  disk.hang();
  ASSERT_TRUE(rig.run_until([&rig] { return rig.current_song() == 2; }, 30'000));
  const std::size_t first_is_over = rig.made().size();
  ASSERT_TRUE(rig.run_until([&rig] { return rig.sound().MixTimer->Interval() == 0; }, 30'000));
  EXPECT_GT(disk.waiting(), 0) << "the read still hangs";
  const auto heard = std::span(rig.made()).subspan(first_is_over);
  SongFinder finder(heard);
  const std::size_t begin = finder.take(second);
  const std::size_t end = finder.take(third) + third.size();
  EXPECT_LE(finder.rest(), 1.0) << "at frame " << finder.first_rest();
  EXPECT_LE(end, heard.size());
  const auto silent = static_cast<int>(longest_silence(heard, begin, end) * 1000 / kSampleRate);
  EXPECT_EQ(silent, 0);
  record_fault("with threads: a read that never returns under a song", "the songs after it are heard, on its deck too",
               std::to_string(silent) + " ms of dead air after it, panel held for at most " +
                   std::to_string(rig.longest_pause()) + " ms");
}

INSTANTIATE_TEST_SUITE_P(Times, LiveStalledDisk, testing::Values(500, 4000),
                         [](const auto& each) { return std::to_string(each.param) + "_ms"; });

}  // namespace
}  // namespace tandem::test
