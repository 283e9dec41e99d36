// The whole player through the life of a sound server: the same song goes on where it was, and nothing leaks.
#include <gtest/gtest.h>

#include <filesystem>

#include "faults/measured.h"
#include "live/live_rig.h"
#include "program/signatures.h"

namespace tandem::test {
namespace {

constexpr Milliseconds kBackWithin = 2000;
constexpr double kLevel = 0.5;

std::ptrdiff_t entries_of(const char* directory) {
  const std::filesystem::directory_iterator entries(directory);
  return std::distance(begin(entries), end(entries));
}

class LiveDeviceLife : public testing::Test {
 protected:
  // Making a long song takes its time, in which the recording would not be read.
  void add_song(double seconds) { song_ = rig_.add_song("song.wav", signature(1, seconds, kLevel)); }
  void wait_for_silence() {
    ASSERT_TRUE(rig_.run_until([this] { return !rig_.output().consuming(); }));
    rig_.run(30);
    stood_at_ = rig_.position();
  }
  // The device is there: the song goes on from where it stood.
  void expect_back() {
    EXPECT_EQ(rig_.position(), stood_at_);
    const Nanoseconds began = monotonic_now();
    ASSERT_TRUE(rig_.run_until([this] { return rig_.position() > stood_at_; }, kBackWithin));
    slowest_ = std::max(slowest_, (monotonic_now() - began) / kNanosecondsPerMillisecond);
    ASSERT_TRUE(rig_.played_further(0.2));
  }
  // What the mixer made is the song, frame by frame, as far as it came: nothing twice, nothing left out.
  void expect_no_skip() {
    SongFinder finder(rig_.made());
    const std::size_t made = rig_.made().size() - finder.take(song_);
    ASSERT_LT(made, song_.size());
    EXPECT_LE(finder.rest(), 1.0) << "at frame " << finder.first_rest();
  }

  std::string back_text() const {
    return "back within " + std::to_string(slowest_) + " ms, " +
           (HasFailure() ? "NOT ALL AS IT SHOULD BE" : "no sample lost or repeated");
  }

  LiveRig rig_;
  Sound song_;
  std::int32_t stood_at_ = 0;
  Milliseconds slowest_ = 0;
};

// TANDEM_TEST_RESTARTS: how many times.
TEST_F(LiveDeviceLife, AServerThatIsKilledAndRestarted) {
  const int restarts = count_from("TANDEM_TEST_RESTARTS", 3);
  add_song(20.0 + 3 * restarts);
  rig_.server.start();
  rig_.play();
  ASSERT_TRUE(rig_.played_further(0.5));
  std::ptrdiff_t descriptors = 0;
  std::ptrdiff_t threads = 0;
  for (int i = 0; i < restarts; ++i) {
    rig_.server.kill_hard();
    wait_for_silence();
    rig_.server.start();
    expect_back();
    if (i > 0) continue;
    descriptors = entries_of("/proc/self/fd");
    threads = entries_of("/proc/self/task");
  }
  EXPECT_EQ(entries_of("/proc/self/fd"), descriptors);
  EXPECT_EQ(entries_of("/proc/self/task"), threads);
  expect_no_skip();
  record_fault("sound server killed and started again while a song plays, " + std::to_string(restarts) + " times",
               "back within 2 s, no sample lost or repeated, nothing left open", back_text());
}

TEST_F(LiveDeviceLife, TheSinkGoesAndComes) {
  add_song(20.0);
  rig_.server.start();
  rig_.play();
  ASSERT_TRUE(rig_.played_further(0.5));
  rig_.server.unload_sink("null0");
  wait_for_silence();
  rig_.server.load_sink("null0");
  expect_back();
  expect_no_skip();
  record_fault("sound device goes and comes while a song plays", "back within 2 s, no sample lost or repeated",
               back_text());
}

TEST_F(LiveDeviceLife, AServerThatHangsForAWhile) {
  add_song(20.0);
  rig_.server.start();
  rig_.play();
  ASSERT_TRUE(rig_.played_further(0.5));
  rig_.server.freeze();
  rig_.run(700);  // longer than all that is queued
  const std::int32_t stood_at = rig_.position();
  rig_.run(100);
  EXPECT_EQ(rig_.position(), stood_at);
  rig_.server.thaw();
  const Nanoseconds began = monotonic_now();
  EXPECT_TRUE(rig_.run_until([&] { return rig_.position() > stood_at; }, kBackWithin));
  slowest_ = (monotonic_now() - began) / kNanosecondsPerMillisecond;
  expect_no_skip();
  record_fault("sound server frozen for 800 ms while a song plays", "goes on within 2 s, no sample lost or repeated",
               back_text());
}

TEST_F(LiveDeviceLife, NoServerAtTheStart) {
  add_song(20.0);
  rig_.play();
  rig_.run(300);
  stood_at_ = rig_.position();
  EXPECT_EQ(stood_at_, 0);
  rig_.server.start();
  expect_back();
  expect_no_skip();
  record_fault("no sound server at the start, PLAY pressed", "the song begins within 2 s of the server's start, whole",
               back_text());
}

}  // namespace
}  // namespace tandem::test
