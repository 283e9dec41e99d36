// The disk hangs for a while, before a song's turn, while it plays, or when it is wanted elsewhere: nothing is lost but
// the time in which there is nothing to play.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"

namespace tandem::test {
namespace {

constexpr int kLead = 1000;    // milliseconds
constexpr int kMargin = 100;   // beside the time in which there is nothing to play
constexpr int kShort = 3000;   // a song's length
constexpr int kLong = 20'000;  // far more than is read ahead

int milliseconds_of_frames(std::size_t frames) {
  return static_cast<int>(std::lround(static_cast<double>(frames) * 1000 / kSampleRate));
}

class StalledDisk : public testing::TestWithParam<int> {  // for how many milliseconds
 protected:
  StalledDisk() { rig.choose_lead(kLead); }

  void stall() {
    for (const std::size_t deck : {0U, 1U}) rig.player().workers.stall_reader(deck, true);
    rig.run(GetParam());
    for (const std::size_t deck : {0U, 1U}) rig.player().workers.stall_reader(deck, false);
  }
  void play(const std::vector<std::int64_t>& lengths) {
    for (const std::int64_t length : lengths) songs.push_back(add_noise(rig, std::to_string(songs.size()), length));
    rig.play();
    begin = rig.next_start();
  }
  int dead_air() {
    EXPECT_TRUE(rig.run_until_stopped(60'000));
    EXPECT_EQ(rig.controls().PlayList.ListIndex(), static_cast<std::int32_t>(songs.size()) - 1);
    const std::size_t end = rig.frames() - kSampleRate / 10;
    rig.run(20);
    return milliseconds_of_frames(longest_silence(rig.sound(), begin, end));
  }
  // Every song, whole, and nothing else.
  void expect_all_heard() {
    SongFinder finder(rig.sound());
    for (const AddedSong& song : songs) EXPECT_LT(finder.take(song.sound), rig.frames());
    EXPECT_LE(finder.rest(), 1.0);
  }
  void judge(const std::string& when, int most) {
    const int silent = dead_air();
    EXPECT_LE(silent, most);
    record_fault("disk stalled for " + std::to_string(GetParam()) + " ms " + when,
                 "no song lost, dead air at most " + std::to_string(most) + " ms", std::to_string(silent) + " ms");
  }

  PlayerRig rig;
  std::vector<AddedSong> songs;
  std::size_t begin = 0;
};

TEST_P(StalledDisk, WhileASongPlaysIsNotHeard) {
  play({kLong, kShort});
  rig.run(7000);
  stall();
  judge("while a song plays", 0);
  expect_all_heard();
}

// From before the song's name is put on its deck. The song before it has been read to its end by then and is heard to
// its end.
TEST_P(StalledDisk, BeforeASongsTurnCostsNoMoreThanTheStall) {
  play({kShort, kShort, kShort});
  ASSERT_TRUE(rig.run_until([this] { return rig.state().CurrentSong == 2; }, 10'000));
  rig.run(kLead - 100);
  const std::size_t began = rig.frames();
  stall();
  const int sound_left = milliseconds_of_frames(begin + 5 * std::size_t{kSampleRate} - began);
  judge("before a song's turn", std::max(GetParam() - sound_left + kMargin, 0));
  expect_all_heard();
}

TEST_P(StalledDisk, WhereASeekLeadsCostsNoMoreThanTheStall) {
  play({kLong, kShort});
  rig.run(2000);
  rig.seek(15'000);
  stall();
  judge("where a seek leads", GetParam() + kMargin);
}

INSTANTIATE_TEST_SUITE_P(Times, StalledDisk, testing::Values(500, 1000, 2000, 4000),
                         [](const auto& each) { return std::to_string(each.param) + "_ms"; });

}  // namespace
}  // namespace tandem::test
