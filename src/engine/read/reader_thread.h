// Runs a deck's reader on a thread of its own, so that a stalled disk under one deck never starves the other.
//
// A thread that hangs in a read (a dead network mount, an unplugged stick) cannot be stopped. When its owner is
// destroyed, or another song is asked for, it is left with its share of the feed: it ends when the read returns, or
// with the program.
//
// UI thread.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>

#include "engine/read/deck_reader.h"

namespace tandem {

class ReaderThread {
 public:
  // In steps of 10 ms. A thread hangs if one piece of its work takes kWork, and a song has waited kRequest for it to
  // come back: a walk through a file ends within a read when another song is asked for.
  static constexpr std::uint64_t kWork = 200;
  static constexpr std::uint64_t kRequest = 30;

  explicit ReaderThread(DeckReader& reader);
  // Ends the reader's work. Waits at most 100 ms for the thread: the usual end of a walk or a block comes sooner.
  ~ReaderThread();
  ReaderThread(const ReaderThread&) = delete;
  ReaderThread& operator=(const ReaderThread&) = delete;

  void wake();  // there is a request
  // At every tick of the clock, with the count of steps that were rendered. True: the thread hangs, and another reads
  // the song that it has not come to, with the reader's new feed.
  bool replace_if_hung(std::uint64_t step);

 private:
  // What the thread and its owner share.
  class Shared {
   public:
    explicit Shared(std::shared_ptr<SongFeed> feed) : feed_(std::move(feed)) {}
    void run();
    void wake();
    void stop();
    std::uint64_t turns() const { return turns_.load(std::memory_order_acquire); }
    bool has_name() const { return feed_->mailbox().has_name(); }

   private:
    void sleep();
    bool work();

    std::shared_ptr<SongFeed> feed_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool woken_ = false;
    bool ended_ = false;
    std::atomic<std::uint64_t> turns_{0};  // begun and ended pieces of work: odd while it works
  };

  void start();

  DeckReader& reader_;
  std::shared_ptr<Shared> shared_;
  std::uint64_t turns_ = 0;          // as seen last,
  std::uint64_t turned_at_ = 0;      // and at which step it was new
  std::uint64_t no_name_until_ = 0;  // the last step at which no song waited
};

}  // namespace tandem
