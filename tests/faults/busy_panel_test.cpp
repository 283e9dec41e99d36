// The panel's thread is held up across a mix point, or a file dialog stands open: the sound does not wait for it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"

namespace tandem::test {
namespace {

constexpr std::int64_t kSongLength = 6000;

struct Stall {
  int milliseconds;
  int lead;
};

std::string dead_air_text(std::size_t frames) {
  return std::to_string(std::lround(static_cast<double>(frames) * 1000 / kSampleRate)) + " ms";
}

class BusyPanel : public testing::TestWithParam<Stall> {
 protected:
  BusyPanel() {
    for (const char* name : {"first", "second", "third"}) songs.push_back(add_noise(rig, name, kSongLength));
    rig.choose_lead(GetParam().lead);
    rig.play();
    begin = rig.next_start();
  }
  // Nothing happens on the panel from shortly before the mix point on.
  void stall() {
    rig.run(kSongLength - GetParam().lead - 50);
    ASSERT_EQ(rig.state().MixStarted, kFalse);
    rig.player().run_with_busy_panel(GetParam().milliseconds);
  }

  PlayerRig rig;
  std::vector<AddedSong> songs;
  std::size_t begin = 0;
};

TEST_P(BusyPanel, CostsAtMostWhatIsLongerThanTheLead) {
  stall();
  ASSERT_TRUE(rig.run_until_stopped(30'000));
  EXPECT_EQ(rig.controls().PlayList.ListIndex(), 2);
  const std::size_t sounding = rig.frames() - kSampleRate / 10;
  const std::size_t silent = longest_silence(rig.sound(), begin, sounding);
  const int most = std::max(GetParam().milliseconds - GetParam().lead + 100, 0);
  EXPECT_LE(silent, static_cast<std::size_t>(most) * kSampleRate / 1000);
  record_fault("panel thread stalled " + std::to_string(GetParam().milliseconds) + " ms across a mix point, lead " +
                   std::to_string(GetParam().lead) + " ms",
               "dead air at most " + std::to_string(most) + " ms", dead_air_text(silent));
}

TEST_P(BusyPanel, LosesNoSong) {
  stall();
  ASSERT_TRUE(rig.run_until_stopped(30'000));
  rig.run(20);
  SongFinder finder(rig.sound());
  for (const AddedSong& song : songs) EXPECT_LT(finder.take(song.sound), rig.frames());
  EXPECT_LE(finder.rest(), 1.0);
}

std::vector<Stall> stalls() {
  std::vector<Stall> all;
  for (const int milliseconds : {200, 1000, 5000})
    for (const int lead : {280, 1000, 2500, 3500}) all.push_back({milliseconds, lead});
  return all;
}
INSTANTIATE_TEST_SUITE_P(Stalls, BusyPanel, testing::ValuesIn(stalls()), [](const auto& each) {
  return std::to_string(each.param.milliseconds) + "_lead_" + std::to_string(each.param.lead);
});

class OpenDialog : public testing::Test {
 protected:
  OpenDialog() {
    for (const char* name : {"1", "2", "3", "4", "5"}) songs.push_back(add_noise(rig, name, 4000));
    rig.choose_lead(1000);
    rig.hooks.after_mix_tick.emplace_back([this] { note_change(); });
    rig.play();
    begin = rig.next_start();
    rig.run(1000);
  }
  void note_change() {
    if (rig.state().CurrentSong == song) return;
    song = rig.state().CurrentSong;
    if (song > 1) changes.push_back(rig.player().now());
  }

  PlayerRig rig;
  std::vector<AddedSong> songs;
  std::vector<std::int64_t> changes;
  std::int16_t song = 0;
  std::size_t begin = 0;
};

TEST_F(OpenDialog, LetsThreeChangesHappenOnTime) {
  std::size_t seen = 0;
  rig.player().dialog.while_open = [&] {
    rig.run(9500);
    seen = changes.size();
  };
  rig.controls().LoadSong.click.raise();  // cancelled in the end
  rig.player().dialog.while_open = nullptr;
  EXPECT_EQ(seen, 3U);
  ASSERT_TRUE(rig.run_until_stopped(20'000));
  rig.run(20);
  SongFinder finder(rig.sound());
  std::int64_t latest = 0;
  std::size_t before = begin;
  for (const AddedSong& each : songs) {
    const std::size_t at = finder.take(each.sound);
    if (at != begin) latest = std::max(latest, static_cast<std::int64_t>(at - before) - 3 * kSampleRate);
    EXPECT_GE(at + 1, before + (at == begin ? 0 : 3 * kSampleRate));
    before = at;
  }
  EXPECT_LE(finder.rest(), 1.0);
  EXPECT_LE(latest, kSampleRate / 50);
  record_fault("song dialog open across three changes", "each on time, at most 20 ms late",
               std::to_string(seen) + " changes, latest " + dead_air_text(static_cast<std::size_t>(latest)) + " late");
}

}  // namespace
}  // namespace tandem::test
