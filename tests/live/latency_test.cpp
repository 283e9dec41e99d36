// How soon a move of a control is heard, and how well what the displays are shown keeps time with what is heard.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "live/live_rig.h"
#include "program/signatures.h"

namespace tandem::test {
namespace {

constexpr double kToneLevel = 0.5;

struct Buffers {
  int mode;
  double limit_ms;
};

class LiveLatency : public testing::TestWithParam<Buffers> {
 protected:
  void play() {
    rig_.start_server();
    rig_.add_song("tone.wav", tones(60.0, 1000.0, kToneLevel));
    rig_.controls().BufferSwitch.move(GetParam().mode);
    rig_.controls().PLAY.click.raise();
    ASSERT_TRUE(rig_.run_until([this] { return rig_.recorded_level(10) > 0.9 * kToneLevel; }));
    ASSERT_TRUE(rig_.played_further(0.7));
  }
  bool heard(bool loud) const {
    const double level = rig_.recorded_level(10);
    return loud ? level > 0.9 * kToneLevel : level < 0.4 * kToneLevel;
  }
  // Milliseconds from `act` until the recording has fallen, at the most of some rounds (TANDEM_TEST_MOVES), without
  // what a busy machine kept this thread from looking. The way through the recorder, some 20 ms, counts too. `undo`
  // lets it sound again.
  double delay_of(const std::function<void()>& act, const std::function<void()>& undo) {
    std::vector<double> delays;
    for (int round = count_from("TANDEM_TEST_MOVES", 3); round > 0; --round) {
      const Nanoseconds began = monotonic_now();
      act();
      EXPECT_TRUE(rig_.run_until([this] { return heard(false); }, 2000));
      delays.push_back(static_cast<double>(monotonic_now() - began) / kNanosecondsPerMillisecond);
      undo();
      EXPECT_TRUE(rig_.run_until([this] { return heard(true); }, 2000));
      EXPECT_TRUE(rig_.played_further(0.3 + 0.007 * (round % 7)));
    }
    std::sort(delays.begin(), delays.end());
    RecordProperty("median_ms", std::to_string(delays[delays.size() / 2]));
    RecordProperty("most_ms", std::to_string(delays.back()));
    return delays.back() - std::max(0.0, static_cast<double>(rig_.longest_pause()) - 3);
  }

  LiveRig rig_;
};

TEST_P(LiveLatency, VolumeIsHeardInTime) {
  play();
  auto& wheel = rig_.controls().Volume;
  EXPECT_LE(delay_of([&] { wheel.move(0); }, [&] { wheel.move(32768); }), GetParam().limit_ms);
}

TEST_P(LiveLatency, StopIsHeardInTime) {
  play();
  auto& controls = rig_.controls();
  EXPECT_LE(delay_of([&] { controls.STOPBtn.click.raise(); }, [&] { controls.PLAY.click.raise(); }),
            GetParam().limit_ms);
}

TEST_P(LiveLatency, AGainIsHeardInTime) {
  play();
  const auto move_all = [this](int gain) {
    for (auto& slider : rig_.controls().sl0) slider.move(gain);
  };
  EXPECT_LE(delay_of([&] { move_all(-12); }, [&] { move_all(0); }), GetParam().limit_ms);
}

// The frame that output.frames_played() names now, found in the recording, against how much is recorded by now.
TEST_P(LiveLatency, TheDisplaysShowWhatIsHeard) {
  rig_.start_server();
  const Sound song = rig_.add_song("song.wav", signature(1, 8.0, kToneLevel));
  rig_.controls().BufferSwitch.move(GetParam().mode);
  rig_.controls().PLAY.click.raise();
  ASSERT_TRUE(rig_.played_further(0.7));
  std::vector<std::pair<std::uint64_t, std::uint64_t>> looks;  // heard, recorded
  for (int i = 0; i < 60; ++i) {
    rig_.run(37);
    looks.emplace_back(rig_.output().frames_played(), rig_.recorded_frames());
  }
  rig_.run(300);
  const auto recording = rig_.server.recording();
  SongFinder in_recording(recording);
  SongFinder in_feed(rig_.made());
  const auto apart = static_cast<std::int64_t>(in_recording.take(song)) - static_cast<std::int64_t>(in_feed.take(song));
  std::vector<double> late;
  for (const auto& [heard, recorded] : looks)
    late.push_back(static_cast<double>(static_cast<std::int64_t>(recorded) - static_cast<std::int64_t>(heard) - apart) *
                   1000 / kSampleRate);
  std::sort(late.begin(), late.end());
  const double median = late[late.size() / 2];
  RecordProperty("recorded_before_shown_ms", std::to_string(median));
  EXPECT_LE(std::abs(median), 50.0);
}

INSTANTIATE_TEST_SUITE_P(BufferModes, LiveLatency, testing::Values(Buffers{0, 110.0}, Buffers{1, 200.0}),
                         [](const auto& given) { return given.param.mode == 0 ? "Buf1" : "Buf2"; });

}  // namespace
}  // namespace tandem::test
