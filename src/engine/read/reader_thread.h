// Runs a deck's reader on a thread of its own, so that a stalled disk under one deck never starves the other.
//
// A thread that hangs in a read (a dead network mount, an unplugged stick) cannot be stopped. When its owner is
// destroyed it is detached with its share of the feed: it ends when the read returns, or with the program.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

#include "engine/read/deck_reader.h"

namespace tandem {

class ReaderThread {
 public:
  explicit ReaderThread(const DeckReader& reader);
  // Ends the reader's work. Waits at most 100 ms for the thread: the usual end of a walk or a block comes sooner.
  ~ReaderThread();
  ReaderThread(const ReaderThread&) = delete;
  ReaderThread& operator=(const ReaderThread&) = delete;

  void wake();  // UI thread: there is a request

 private:
  // What the thread and its owner share.
  class Shared {
   public:
    explicit Shared(std::shared_ptr<SongFeed> feed) : feed_(std::move(feed)) {}
    void run();
    void wake();
    void stop();

   private:
    void sleep();

    std::shared_ptr<SongFeed> feed_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool woken_ = false;
    bool ended_ = false;
  };

  std::shared_ptr<Shared> shared_;
};

}  // namespace tandem
