// 400 random lists with songs that are short, cut off, missing or no sound at all, with and without Next: each comes to
// its end, and none falls silent for long on its way there.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/random_lists.h"
#include "program/signatures.h"
#include "support/short_runs.h"
#include "support/song_check.h"

namespace tandem::test {
namespace {

constexpr unsigned kLists = 400;
constexpr unsigned kParts = kShortRuns ? 12 : 4;

struct Played {
  bool ended = false;
  std::int64_t silence = 0;  // ms, the longest between PLAY and the stop
  int unplayable_run = 0;    // the longest in the song table
  double rest = 0;           // what is heard beside the table's songs, each whole and in order
};

class RandomListTest : public testing::TestWithParam<unsigned> {
 protected:
  Played play(unsigned k) {
    const RandomList list = lists_.make(k);
    PlayerRig rig;
    rig.choose_lead(list.lead);
    for (const ListedSong& song : list.songs) rig.add(song.path);
    RandomLists::spoil(list);
    const int run = unplayable_run(rig, list);
    const std::size_t from = rig.next_start();
    rig.play();
    const bool ended = list.presses_next ? run_pressing_next(rig, k) : rig.run_until_stopped(kLimit);
    const std::size_t to = rig.next_start();
    rig.run(20);
    const double rest = list.presses_next ? 0 : rest_without_songs(rig);
    return {ended, milliseconds_of(static_cast<Frames>(longest_silence(rig.sound(), from, to))), run, rest};
  }

  // Longer than every list, with half a second for each song that cannot be played and four for each Next.
  static constexpr std::int64_t kLimit = 120'000;

 private:
  static bool run_pressing_next(PlayerRig& rig, unsigned k) {
    std::mt19937 random(k + 100'000);
    for (std::int64_t t = 0; t < kLimit && !rig.stopped();) {
      const std::int64_t pause = 10 + static_cast<std::int64_t>(random() % 150) * 10;
      rig.run_until_stopped(pause);
      t += pause;
      if (!rig.stopped()) rig.next();
    }
    return rig.stopped();
  }

  static double rest_without_songs(PlayerRig& rig) {
    SongFinder finder(rig.sound());
    for (std::int32_t n = 1; n <= rig.controls().PlayList.ListCount(); ++n)
      if (const auto song = SongSource::open(rig.player().program.SongTable.at(n).SongFile))
        finder.take(read_all(*song));
    return finder.rest();
  }

  // A song that is refused when it is added leaves an entry of the table that another song overwrites, or an empty one.
  static int unplayable_run(PlayerRig& rig, const RandomList& list) {
    std::map<std::string, bool> plays;
    for (const ListedSong& song : list.songs) plays[song.path] = playable(song.kind);
    int run = 0;
    int longest = 0;
    for (std::int32_t n = 1; n <= rig.controls().PlayList.ListCount(); ++n) {
      run = plays[rig.player().program.SongTable.at(n).SongFile] ? 0 : run + 1;
      longest = std::max(longest, run);
    }
    return longest;
  }

  RandomLists lists_;
};

TEST_P(RandomListTest, EndsStoppedAndIsNeverSilentForLong) {
  if (test::kShortRuns && GetParam() > 0) GTEST_SKIP() << "other lists of the same kinds";
  int stopped = 0;
  std::int64_t silence = 0;
  for (unsigned k = 1 + GetParam() * kLists / kParts; k <= (GetParam() + 1) * kLists / kParts; ++k) {
    const Played played = play(k);
    stopped += played.ended ? 1 : 0;
    silence = std::max(silence, played.silence);
    const int allowed = k % 2 == 1 ? 520 : 30 + 10 * std::max(0, played.unplayable_run - 1);
    EXPECT_TRUE(played.ended) << "list " << k << ": " << RandomLists().make(k).text();
    EXPECT_LE(played.rest, 1.0) << "list " << k << ": " << RandomLists().make(k).text();
    EXPECT_LE(played.silence, allowed) << "list " << k << ": " << RandomLists().make(k).text();
  }
  record_fault(
      std::to_string(kLists / kParts) + " random lists of short, cut, missing and broken songs, with and without Next",
      "every list comes to Stop, dead air at most 520 ms",
      std::to_string(stopped) + " stopped, dead air at most " + std::to_string(silence) + " ms");
}

INSTANTIATE_TEST_SUITE_P(Lists, RandomListTest, testing::Range(0U, kParts));

TEST(RandomListsThemselves, HaveEnoughThatCannotBePlayedAndLongRunsOfIt) {
  RandomLists lists;
  std::size_t songs = 0;
  std::size_t unplayable = 0;
  std::size_t longest = 0;
  for (unsigned k = 1; k <= kLists; ++k) {
    std::size_t run = 0;
    for (const ListedSong& song : lists.make(k).songs) {
      ++songs;
      run = playable(song.kind) ? 0 : run + 1;
      longest = std::max(longest, run);
      if (!playable(song.kind)) ++unplayable;
    }
  }
  EXPECT_GE(unplayable * 5, songs);
  EXPECT_GE(longest, 10U);
}

}  // namespace
}  // namespace tandem::test
