// A recording of three hours at 320 kbit/s without a header, on a disk that gives far less than a modern one: what is
// heard, and how much of the file is read for it.
//
// A read takes its simulated time in that no reader works until it has passed. What the read brought is there at once,
// so that sound may come one piece of work early, but the time as a whole is spent.
#include "faults/slow_disk.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/decode/mp3_index.h"
#include "engine/read/deck_reader.h"
#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"
#include "shell/mix_view.h"
#include "support/mp3_maker.h"

namespace tandem::test {
namespace {

constexpr std::int64_t kGroupBytes = 51200;  // 49 frames of 320 kbit/s at 44.1 kHz, after which the padding repeats
constexpr std::int64_t kRecordingBytes = 8437 * kGroupBytes;
constexpr std::int32_t kMiddle = 5'400'000;  // ms
constexpr std::size_t kSteady = kSampleRate / 2;

struct Speed {
  const char* name;
  double bytes_per_second;
  double seconds_per_read;
};

Bytes recorded_piece() {
  const Bytes song = make_mp3(tones(10.0, 441.0, 0.3), {"-b", "320", "-t"});
  return slice(song, 0, static_cast<std::size_t>(6 * kGroupBytes));
}

class LongRecording : public testing::TestWithParam<Speed> {
 protected:
  LongRecording() : disk_(rig.file("recording.mp3"), recorded_piece(), kRecordingBytes) {
    rig.choose_lead(1000);
    rig.add(rig.file("recording.mp3"));
    add_song(rig, "next.wav", tones(30.0, 882.0, 0.3));
    rig.play();
    disk_.set_speed(GetParam().bytes_per_second, GetParam().seconds_per_read);
    disk_.on_read([this] { stall(disk_.busy_seconds() > passed_); });
    passed_ = disk_.busy_seconds();
  }
  ~LongRecording() override { disk_.on_read({}); }

  void stall(bool stalled) {
    for (const std::size_t deck : {0U, 1U}) rig.player().workers.stall_reader(deck, stalled);
  }
  void run(int milliseconds) {
    for (int i = 0; i < milliseconds / kStepMilliseconds; ++i) {
      passed_ = std::max(passed_, std::min(passed_ + 0.01, disk_.busy_seconds()));
      stall(disk_.busy_seconds() > passed_);
      rig.run(kStepMilliseconds);
    }
  }
  static int milliseconds(std::size_t frames) { return static_cast<int>(frames * 1000 / kSampleRate); }
  std::size_t first_sound(std::size_t from) const {
    const auto& sound = rig.sound();
    while (from < sound.size() && std::abs(int{sound[from].left}) < 100) ++from;
    return from;
  }
  // From where on it sounds without a silence for half a second.
  std::size_t steady_sound(std::size_t from) const {
    from = first_sound(from);
    while (from + kSteady < rig.frames() && longest_silence(rig.sound(), from, from + kSteady) > kSampleRate / 1000) {
      from = first_sound(from + kSampleRate / 1000);
    }
    return from;
  }
  // The longest silence after that.
  int dead_air(std::size_t from) const {
    return milliseconds(longest_silence(rig.sound(), steady_sound(from), rig.frames()));
  }
  void record(const std::string& what, const std::string& expected, const std::string& measured) const {
    record_fault("recording of 3 h without a header, disk of " + std::string(GetParam().name) + ": " + what, expected,
                 measured);
  }

  PlayerRig rig;
  SlowDisk disk_;
  double passed_ = 0;  // of the disk's busy time
};

TEST_P(LongRecording, PlaysWithoutDeadAir) {
  const std::size_t began = rig.frames();
  const std::int64_t read_before = disk_.bytes_read();
  run(60'000);
  const int start = milliseconds(steady_sound(began) - began);
  EXPECT_EQ(dead_air(began), 0);
  EXPECT_LE(start, 1500);
  EXPECT_LT(disk_.bytes_read() - read_before, std::int64_t{7'000'000});  // a minute of sound is 2.4 MB, read twice
  record("play", "no dead air once it sounds",
         "sound after " + std::to_string(start) + " ms, then " + std::to_string(dead_air(began)) + " ms");
}

// It is asked five times a second on the UI thread, which must never wait for a disk.
TEST_P(LongRecording, WhatSoundsIsShownWithoutALookAtTheFile) {
  run(1000);
  const int reads = disk_.reads();
  const MixView view = mix_view(rig.player().program);
  ASSERT_TRUE(view.counted);
  EXPECT_EQ(view.counted->length, rig.player().program.SongTable.at(1).SongLength);
  EXPECT_EQ(disk_.reads(), reads);
}

TEST_P(LongRecording, ASeekToTheMiddleReadsOnlyWhatItNeeds) {
  run(10'000);
  const std::size_t sought = rig.frames() + kChainDelay + 2 * kStepFrames;  // beyond the fade of what was broken off
  const std::int64_t read_before = disk_.bytes_read();
  rig.seek(kMiddle);
  run(10);
  EXPECT_LT(disk_.bytes_read() - read_before, 600'000);
  run(20'000);
  const int gap = milliseconds(steady_sound(sought) - sought);
  EXPECT_EQ(dead_air(sought), 0);
  EXPECT_LE(gap, 300);
  EXPECT_NEAR(rig.deck(0).Position(), kMiddle + 20'000 - gap, 150);
  EXPECT_EQ(rig.state().CurrentSong, 1);
  record("seek to the middle", "sound within 300 ms, then no dead air",
         "after " + std::to_string(gap) + " ms, then " + std::to_string(dead_air(sought)) + " ms");
}

TEST_P(LongRecording, NextIsHeardAtOnceAfterASeek) {
  run(10'000);
  rig.seek(kMiddle);
  run(30);
  const std::size_t pressed = rig.frames();
  rig.next();
  run(5000);
  EXPECT_EQ(rig.state().CurrentSong, 2);
  const int gap = milliseconds(longest_silence(rig.sound(), pressed, rig.frames()));
  EXPECT_LE(gap, 50);
  record("Next just after a seek", "dead air at most 50 ms", std::to_string(gap) + " ms");
}

INSTANTIATE_TEST_SUITE_P(Disks, LongRecording,
                         testing::Values(Speed{"20 MB/s", 20e6, 0}, Speed{"5 MB/s", 5e6, 0}, Speed{"1 MB/s", 1e6, 0},
                                         Speed{"20 MB/s that takes 50 ms for each read", 20e6, 0.05}),
                         [](const auto& each) { return "Number" + std::to_string(each.index); });

// Without a constant bit rate a seek must walk through the file; that ends as soon as something else is wanted.
class LongWalk : public testing::Test {
 protected:
  LongWalk() {
    reader_.open(1, path());
    while (reader_.work()) continue;
  }
  std::string path() const { return directory_.file("long.mp3"); }
  static Bytes varying_piece() { return make_mp3(music(20.0), {"-V4", "-t", "--nores"}); }
  // Seeks, and does `act` in the middle of the walk. Returns how many reads came after it.
  int reads_after(const std::function<void()>& act) {
    const int before = disk_.reads();
    int acted_at = 0;
    disk_.on_read([&] {
      if (disk_.reads() != before + 50) return;
      act();
      acted_at = disk_.reads();
    });
    reader_.seek(2, Frames{3600} * kSampleRate);
    EXPECT_TRUE(reader_.work());
    disk_.on_read({});
    EXPECT_GT(acted_at, 0);
    return disk_.reads() - acted_at;
  }
  ReaderStatus status() const {
    ReaderStatus seen;
    EXPECT_TRUE(reader_.status().try_read(seen));
    return seen;
  }
  void skip_what_was_read() { reader_.ring().skip_to(reader_.ring().written()); }

  TempDirectory directory_;
  SlowDisk disk_{path(), varying_piece(), 100'000'000};
  DeckReader reader_;
};

TEST_F(LongWalk, IsNeededForASeekWithoutAConstantBitRate) {
  const std::int64_t before = disk_.bytes_read();
  reader_.seek(2, Frames{3600} * kSampleRate);
  reader_.work();
  EXPECT_GT(disk_.bytes_read() - before, 30'000'000);
  EXPECT_EQ(status().first_frame, Frames{3600} * kSampleRate);
}

TEST_F(LongWalk, EndsAtANewName) {
  EXPECT_LE(reads_after([this] { reader_.open(3, path()); }), 1);
  skip_what_was_read();
  reader_.work();
  EXPECT_EQ(status().generation, 3U);
  EXPECT_EQ(status().state, ReaderStatus::State::Reading);
}

TEST_F(LongWalk, EndsAtAnotherSeekAndTheSongPlaysThere) {
  EXPECT_LE(reads_after([this] { reader_.seek(3, 10 * kSampleRate); }), 1);
  skip_what_was_read();
  reader_.work();
  EXPECT_EQ(status().first_frame, 10 * kSampleRate);
  reader_.work();
  Sound heard(1000);
  ASSERT_EQ(reader_.ring().read(heard), heard.size());
  const auto source = SongSource::open(path());
  source->seek(10 * kSampleRate);
  Sound expected(heard.size());
  source->read(expected);
  EXPECT_EQ(heard, expected);
}

TEST_F(LongWalk, EndsWhenTheDeckIsClosed) {
  EXPECT_LE(reads_after([this] { reader_.feed()->mailbox().close(); }), 1);
}

TEST_F(LongWalk, WhichASeekContinuesFromWhereItWasBrokenOff) {
  reads_after([this] { reader_.seek(3, 0); });
  reader_.work();
  const std::int64_t before = disk_.bytes_read();
  reader_.seek(4, 100 * kSampleRate);  // within what the first walk has seen
  reader_.work();
  EXPECT_LT(disk_.bytes_read() - before, 500'000);
}

// At 2 MB/s the walk takes 40 s, and a song that brought nothing for 10 s would be passed over.
TEST(LongSongs, AFarSeekThatTakesLongLosesNoSong) {
  PlayerRig rig;
  const std::string path = rig.file("varying.mp3");
  SlowDisk disk(path, make_mp3(music(20.0), {"-V4", "-t", "--nores"}), 100'000'000);
  rig.add(path);
  add_song(rig, "next.wav", tones(30.0, 882.0, 0.3));
  rig.play();
  rig.run(1000);
  constexpr double kSpeed = 2e6;
  disk.set_speed(kSpeed, 0);
  double passed = disk.busy_seconds();
  const auto stall = [&rig](bool stalled) {
    for (const std::size_t deck : {0U, 1U}) rig.player().workers.stall_reader(deck, stalled);
  };
  disk.on_read([&] {
    for (stall(true); passed < disk.busy_seconds(); passed += 0.01) rig.run(kStepMilliseconds);
    stall(false);
  });
  const double before = passed;
  const std::int32_t place = rig.player().program.SongTable.at(1).SongLength / 10 * 8;
  rig.seek(place);
  rig.run(1000);
  disk.on_read({});
  EXPECT_GT(passed - before, 30.0);
  EXPECT_EQ(rig.state().CurrentSong, 1);
  EXPECT_NEAR(rig.deck(0).Position(), place + 1000, 1000);
  record_fault("a seek far into a song of 100 MB whose bit rate varies, without a header, disk of 2 MB/s",
               "the song goes on there",
               "silence for " + std::to_string(static_cast<int>(passed - before)) + " s, then so");
}

// The index that a walk leaves is small however long the song is.
TEST(LongSongs, TwelveHoursNeedLittleMemory) {
  const TempDirectory directory;
  const std::string path = directory.file("night.mp3");
  const SlowDisk disk(path, recorded_piece(), kRecordingBytes * 4);
  const auto file = SongFile::open(path);
  const auto index = Mp3Index::open(file, 0, file->size(), {});
  EXPECT_EQ(index->end_of_sound(0), Frames{4} * 8437 * 49 * 1152);
  EXPECT_LE(index->frames().memory_bytes(), 1'000'000U);
  record_fault("a recording of 12 hours, walked through to its end", "at most 1000 kB of memory for its index",
               std::to_string(index->frames().memory_bytes() / 1000) + " kB");
}

}  // namespace
}  // namespace tandem::test
