// A read that never comes back (a dead network mount): the deck closes all the same, and so does the program.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <thread>

#include "engine/read/reader_thread.h"
#include "faults/failing_disk.h"
#include "faults/measured.h"
#include "support/bytes.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kLongestClose = std::chrono::milliseconds(500);

class HangingReader : public testing::Test {
 protected:
  HangingReader() {
    write_file(song(), wav_file(tones(20.0, 440, 0.3), Encoding::kInt16));
    for (std::size_t i = 0; i < readers_.size(); ++i) readers_[i] = std::make_unique<DeckReader>();
    disk_.hang();
    for (std::size_t i = 0; i < readers_.size(); ++i) {
      threads_[i] = std::make_unique<ReaderThread>(*readers_[i]);
      readers_[i]->open(1, song());
      threads_[i]->wake();
    }
    while (disk_.waiting() < 2) std::this_thread::yield();
  }
  std::string song() const { return directory_.file("song.wav"); }
  void close() {
    for (auto& thread : threads_) thread.reset();
    for (auto& reader : readers_) reader.reset();
  }

  TempDirectory directory_;
  FailingDisk disk_{directory_.path()};
  std::array<std::unique_ptr<DeckReader>, 2> readers_;
  std::array<std::unique_ptr<ReaderThread>, 2> threads_;
};

TEST_F(HangingReader, HoldsUpNoClose) {
  const std::weak_ptr<SongFeed> feed = readers_[0]->feed();
  const auto began = Clock::now();
  auto closed = std::async(std::launch::async, [this] { close(); });
  const bool in_time = closed.wait_for(std::chrono::seconds(60)) == std::future_status::ready;
  const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - began);
  EXPECT_EQ(disk_.waiting(), 2);  // the reads still hang
  disk_.go_on();
  ASSERT_TRUE(in_time);
  EXPECT_LE(took, kLongestClose);
  record_fault("closing while both decks' reads hang", "closed within 500 ms", std::to_string(took.count()) + " ms");
  // What the threads shared goes with them.
  while (!feed.expired()) std::this_thread::yield();
}

TEST_F(HangingReader, GoesOnIfTheReadComesBackBefore) {
  disk_.go_on();
  ReaderStatus seen;
  while (!readers_[0]->idle() || !readers_[0]->status().try_read(seen)) std::this_thread::yield();
  EXPECT_EQ(seen.state, ReaderStatus::State::Reading);
  EXPECT_GT(readers_[0]->ring().readable(), 5U * kSampleRate);
  close();
}

// A dead disk under one song is not to cost its deck the songs of other disks.
TEST_F(HangingReader, LeavesTheNextSongToAThreadOfItsOwn) {
  const TempDirectory healthy;
  write_file(healthy.file("next.wav"), wav_file(tones(20.0, 440, 0.3), Encoding::kInt16));
  readers_[0]->open(2, healthy.file("next.wav"));
  threads_[0]->wake();
  std::uint64_t step = 0;
  while (!threads_[0]->replace_if_hung(step)) ++step;
  EXPECT_LE(step, 250U);
  ReaderStatus seen;
  while (!readers_[0]->status().try_read(seen) || seen.state == ReaderStatus::State::Empty) std::this_thread::yield();
  EXPECT_EQ(seen.generation, 2U);
  EXPECT_EQ(disk_.waiting(), 2);  // the reads still hang
  EXPECT_FALSE(threads_[0]->replace_if_hung(step + 1000));
  disk_.go_on();
  close();
}

TEST_F(HangingReader, ThatHangsAgainAndAgainIsReplacedEightTimes) {
  std::uint64_t step = 0;
  const auto replaced = [&](std::uint32_t generation) {
    while (disk_.waiting() < static_cast<int>(generation)) std::this_thread::yield();
    readers_[0]->open(generation, song());
    threads_[0]->wake();
    for (const std::uint64_t end = step + 1000; step < end; ++step)
      if (threads_[0]->replace_if_hung(step)) return true;
    return false;
  };
  std::uint32_t generation = 2;  // as many reads hang already: one of each deck
  while (generation < 100 && replaced(generation)) ++generation;
  EXPECT_EQ(generation - 2, DeckReader::kMostHung);
  disk_.go_on();
  close();
}

// A walk or a song that is decoded comes back by itself.
TEST_F(HangingReader, IsLeftAloneWhileItWorks) {
  disk_.go_on();
  for (std::uint64_t step = 0; step < 3000; step += 10) {
    readers_[0]->open(static_cast<std::uint32_t>(step) + 2, song());
    threads_[0]->wake();
    ASSERT_FALSE(threads_[0]->replace_if_hung(step));
    while (!readers_[0]->idle()) std::this_thread::yield();
    ASSERT_FALSE(threads_[0]->replace_if_hung(step + 5));
  }
  close();
}

class HangingReaderDeathTest : public HangingReader {
 protected:
  [[noreturn]] void exit_while_reading() {
    disk_.hang();
    DeckReader reader;
    reader.open(1, song());
    static const auto thread = std::make_unique<ReaderThread>(reader);  // ends with the program
    thread->wake();
    while (disk_.waiting() == 0) std::this_thread::yield();
    std::exit(7);
  }
};

TEST_F(HangingReaderDeathTest, HoldsUpNoExitOfTheProgram) {
  disk_.go_on();
  close();
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(exit_while_reading(), testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace tandem::test
