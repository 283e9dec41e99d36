// Runs a deck's reader on a thread of its own, so that a stalled disk under one deck never starves the other.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "engine/read/deck_reader.h"

namespace tandem {

class ReaderThread {
 public:
  explicit ReaderThread(DeckReader& reader);
  ~ReaderThread();  // waits for the piece of work under way
  ReaderThread(const ReaderThread&) = delete;
  ReaderThread& operator=(const ReaderThread&) = delete;

  void wake();  // UI thread: there is an order

 private:
  void run();
  void sleep();

  DeckReader& reader_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool woken_ = false;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace tandem
