#include "engine/read/reader_thread.h"

#include <chrono>

#include "engine/core/thread_name.h"

namespace tandem {

namespace {
constexpr auto kIdle = std::chrono::milliseconds(200);  // the ring holds seconds
constexpr auto kShort = std::chrono::milliseconds(2);
}  // namespace

ReaderThread::ReaderThread(DeckReader& reader) : reader_(reader), thread_([this] { run(); }) {}

ReaderThread::~ReaderThread() {
  {
    const std::scoped_lock lock(mutex_);
    stopping_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void ReaderThread::wake() {
  {
    const std::scoped_lock lock(mutex_);
    woken_ = true;
  }
  changed_.notify_one();
}

void ReaderThread::sleep() {
  std::unique_lock lock(mutex_);
  changed_.wait_for(lock, reader_.waits_for_room() ? kShort : kIdle, [this] { return woken_ || stopping_; });
  woken_ = false;
}

void ReaderThread::run() {
  name_this_thread("tandem-reader");
  for (;;) {
    {
      const std::scoped_lock lock(mutex_);
      if (stopping_) return;
    }
    if (!reader_.work()) sleep();
  }
}

}  // namespace tandem
