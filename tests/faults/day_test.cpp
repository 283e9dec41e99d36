// A day in minutes: 200 songs in simulated time, every overlap measured, and what the process uses before and after.
// The quick form plays three hours, TANDEM_DAY=1 more than two days.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/runtime_error.h"
#include "faults/measured.h"
#include "program/player_rig.h"
#include "simulation/simulated_player.h"
#include "support/bytes.h"
#include "support/mp3_maker.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

constexpr int kSongs = 200;

bool whole_day() {
  const char* setting = std::getenv("TANDEM_DAY");
  return setting != nullptr && std::string(setting) == "1";
}

// Four files, which the list repeats: three of 8-bit mono and one MP3, never silent, as quiet as may be.
class Songs {
 public:
  explicit Songs(int seconds) {
    for (int i = 0; i < 3; ++i)
      keep(std::to_string(i) + ".wav", wav_file(hum(seconds + i, 0.1 + 0.04 * i), Encoding::kInt8));
    keep("3.mp3", make_mp3(hum(seconds, 0.3), {"-b", "32", "-m", "m"}));
  }
  const std::string& path(int number) const { return paths_.at(static_cast<std::size_t>(number) % paths_.size()); }

 private:
  // Levels differ, so that two songs never cancel out.
  static Signal hum(int seconds, double level) {
    Signal signal{kSampleRate, 1, Samples(static_cast<std::size_t>(seconds) * kSampleRate)};
    for (std::size_t i = 0; i < signal.samples.size(); ++i) signal.samples[i] = i % 100 < 50 ? level : -level;
    return signal;
  }
  void keep(const std::string& name, const Bytes& bytes) {
    write_file(directory_.file(name), bytes);
    paths_.push_back(directory_.file(name));
  }
  TempDirectory directory_;
  std::vector<std::string> paths_;
};

struct Use {
  std::int64_t kilobytes = 0;
  std::int64_t descriptors = 0;
  std::int64_t threads = 0;
};

std::int64_t count_of(const char* folder) {
  return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

Use use_now() {
  std::ifstream pages("/proc/self/statm");
  std::int64_t all = 0;
  std::int64_t resident = 0;
  pages >> all >> resident;
  return {resident * 4, count_of("/proc/self/fd"), count_of("/proc/self/task")};
}

class Day : public testing::TestWithParam<int> {  // the position of the buffer switch
 protected:
  Day() : songs_(whole_day() ? 480 : 30) {
    write_file(directory_.file("TP.inf"), text_bytes(factory_text()));
    player_ = std::make_unique<SimulatedPlayer>(SimulatedPlayer::Options{
        directory_.path(), sink_of_16_bits([this](std::span<const Sample16> sound) { listen(sound); }), {}, {}});
    program().sound.MixTimer->tick.connect([this] { tick(); });
    player_->load();
    program().controls.BufferSwitch.move(GetParam());
    add_songs();
    player_->run(50);
  }
  Program& program() { return player_->program; }

  void add_songs() {
    for (int i = 0; i < kSongs; ++i) {
      player_->dialog.answers.push_back(songs_.path(i));
      program().controls.LoadSong.click.raise();
    }
  }
  void listen(std::span<const Sample16> sound) {
    for (const Sample16& frame : sound) {
      const bool silent = std::abs(frame.left) <= 2 && std::abs(frame.right) <= 2;
      run_ = silent ? run_ + 1 : 0;
      if (began_ && !silent) longest_ = std::max(longest_, before_);
      began_ = began_ || !silent;
      before_ = run_;
    }
  }
  // How far past the mix point the outgoing song is when the next one is let in.
  void tick() {
    const RunState& state = program().state;
    const bool mixing = state.MixStarted != kFalse;
    const std::int16_t song = state.CurrentSong;
    const std::int32_t position = program().sound.AudioFile.at(static_cast<std::size_t>(state.ActiveDeck))->Position();
    try {
      program().mix.tick();
    } catch (const RuntimeError&) {  // there is no song 201 to load ahead: the handler ends early
      return;
    }
    if (mixing || state.MixStarted == kFalse) return;
    const std::int32_t point = program().SongTable.at(song).SongLength - state.MixTimeMs;
    lates_.push_back(position - point);
    if (lates_.size() % 10 == 0) choose_lead();
    // The same files are open at both: an MP3's index is some hundred kilobytes.
    if (lates_.size() == 20) early_ = use_now();
    if (lates_.size() == 196) late_ = use_now();
  }
  void choose_lead() {
    PanelControls& controls = program().controls;
    Lamp* const lamps[] = {&controls.AMLedOff, &controls.AMLed1, &controls.AMLed2, &controls.AMLed3};
    Lamp& lamp = *lamps[lates_.size() / 10 % 4];
    if (lamp.LEDColor == kLeadDark) lamp.click.raise();
  }
  bool stopped() { return program().sound.MixTimer->Interval() == 0 && program().controls.STOPBtn.Picture == 5; }
  std::string summary() const {
    const auto [least, most] = std::minmax_element(lates_.begin(), lates_.end());
    return std::to_string(lates_.size()) + " overlaps " + std::to_string(*least) + " to " + std::to_string(*most) +
           " ms behind their points in " + std::to_string(player_->now() / 60000) + " min; dead air " +
           std::to_string(longest_ * 1000 / kSampleRate) + " ms; " +
           std::to_string(late_.kilobytes - early_.kilobytes) + " kB, " +
           std::to_string(late_.descriptors - early_.descriptors) + " descriptors, " +
           std::to_string(late_.threads - early_.threads) + " threads more";
  }

  TempDirectory directory_;
  Songs songs_;
  std::unique_ptr<SimulatedPlayer> player_;
  std::vector<std::int32_t> lates_;
  Use early_;
  Use late_;
  bool began_ = false;
  std::int64_t run_ = 0;      // silent frames so far
  std::int64_t before_ = 0;   // the same, one frame ago
  std::int64_t longest_ = 0;  // between two sounds
};

TEST_P(Day, HasEveryOverlapOnTimeAndEndsInStop) {
  program().controls.PLAY.click.raise();
  const std::int64_t limit = player_->now() + std::int64_t{kSongs} * 500'000;
  while (!stopped() && player_->now() < limit) player_->run(1000);
  ASSERT_TRUE(stopped());
  EXPECT_EQ(program().controls.PlayList.ListIndex(), kSongs - 1);
  ASSERT_EQ(lates_.size(), static_cast<std::size_t>(kSongs - 1));
  for (const std::int32_t late : lates_) {
    EXPECT_GT(late, 0);
    EXPECT_LE(late, 11);  // one tick of 10 ms, and a millisecond of rounding
  }
  EXPECT_LE(longest_, kSampleRate / 1000);  // an MP3 of a hum may pass through 0
  EXPECT_LE(late_.kilobytes, early_.kilobytes + 512);
  EXPECT_EQ(late_.descriptors, early_.descriptors);
  EXPECT_EQ(late_.threads, early_.threads);
  record_fault(std::string("a list of 200 songs, all leads, Buf") + (GetParam() == 0 ? "1" : "2"),
               "199 overlaps within 11 ms, no dead air, Stop, nothing grows", summary());
}

INSTANTIATE_TEST_SUITE_P(Buffers, Day, testing::Values(0, 1));

// The table holds 200 songs. The line of one more is added, its song is not; the list plays on as far as it goes.
TEST(LongList, OfMoreThanTwoHundredSongsDoesNotEndTheProgram) {
  PlayerRig rig;
  const std::string song = rig.make_file("short.wav", wav_file(tones(0.4, 500, 0.2), Encoding::kInt16));
  for (int i = 0; i < 210; ++i) rig.add(song);
  const int lines = rig.controls().PlayList.ListCount();
  EXPECT_EQ(rig.player().program.SongTable.at(200).SongFile, song);
  rig.play();
  EXPECT_TRUE(rig.run_until([&] { return rig.controls().PlayList.ListIndex() >= 199; }, 200'000));
  rig.run(10'000);
  const bool over = rig.stopped();
  EXPECT_FALSE(over);  // line 200 is not the last one, and there is no song after it: on purpose
  rig.stop();
  EXPECT_TRUE(rig.stopped());
  rig.controls().PlayList.put_ListIndex(0);
  rig.play();
  rig.run(200);
  EXPECT_GT(rig.deck(0).Position(), 0);
  record_fault(
      "210 songs added", "song 200 is the last, the program goes on, STOP and PLAY work",
      std::to_string(lines) + " lines, " + (over ? "stopped by itself" : "silent after song 200") + ", plays again");
}

}  // namespace
}  // namespace tandem::test
